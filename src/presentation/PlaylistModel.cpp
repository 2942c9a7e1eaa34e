// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlaylistModel.h"

#include "ShownText.h"

using namespace Qt::StringLiterals;

PlaylistModel::PlaylistModel(AppState &state)
    : m_state(state)
{
    connect(&state, &AppState::selectedPlaylistItemsChanged, this, &PlaylistModel::followSelection);
}

void PlaylistModel::setInfo(const VideoInfo &info)
{
    beginResetModel();
    m_info = info;
    endResetModel();
    Q_EMIT infoChanged();
    Q_EMIT countLineChanged();
}

QString PlaylistModel::heading() const
{
    return shownLine(m_info.playlistTitle.value_or(m_info.title));
}

QString PlaylistModel::countLine() const
{
    return u"%1 of %2 selected"_s.arg(m_state.selectedPlaylistItems().size())
        .arg(m_info.playlistEntries.size());
}

int PlaylistModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_info.playlistEntries.size());
}

QVariant PlaylistModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const VideoInfo &entry = m_info.playlistEntries[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return shownLine(entry.title);
    case ThumbnailRole:
        return entry.thumbnailURL;
    case DurationRole:
        return entry.formattedDuration();
    case URLRole:
        return entry.originalURL;
    case SelectedRole:
        return m_state.selectedPlaylistItems().contains(entry.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> PlaylistModel::roleNames() const
{
    return {{TitleRole, "title"},
            {ThumbnailRole, "thumbnailURL"},
            {DurationRole, "duration"},
            {SelectedRole, "isSelected"},
            {URLRole, "url"}};
}

void PlaylistModel::toggle(int row)
{
    if (row < 0 || row >= m_info.playlistEntries.size())
        return;
    const QString id = m_info.playlistEntries[row].id;
    AppState::EntrySelection selection = m_state.selectedPlaylistItems();
    if (!selection.remove(id))
        selection.insert(id);
    m_state.selectedPlaylistItems = selection;
}

void PlaylistModel::selectAll()
{
    AppState::EntrySelection all;
    for (const VideoInfo &entry : std::as_const(m_info.playlistEntries))
        all.insert(entry.id);
    m_state.selectedPlaylistItems = all;
}

void PlaylistModel::selectNone()
{
    m_state.selectedPlaylistItems = AppState::EntrySelection();
}

void PlaylistModel::followSelection()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {SelectedRole});
    Q_EMIT countLineChanged();
}
