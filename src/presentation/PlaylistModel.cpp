// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlaylistModel.h"

#include "ShownText.h"

#include <QGuiApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// More than fit on a screen.
constexpr qsizetype fewestToFilter = 13;

} // namespace

PlaylistModel::PlaylistModel(AppState &state)
    : m_state(state)
{
    connect(&state, &AppState::selectedPlaylistItemsChanged, this, &PlaylistModel::followSelection);
    connect(&state, &AppState::historyChanged, this, &PlaylistModel::followHistory);
}

void PlaylistModel::setInfo(const VideoInfo &info)
{
    beginResetModel();
    m_info = info;
    m_filter.clear();
    m_shown = matches();
    m_anchor = -1;
    m_urls.clear();
    for (const VideoInfo &entry : std::as_const(m_info.playlistEntries))
        m_urls.insert(entry.originalURL);
    m_known = known();
    endResetModel();
    Q_EMIT infoChanged();
    Q_EMIT filterChanged();
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
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

QVariant PlaylistModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const VideoInfo &entry = this->entry(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return shownLine(entry.title);
    case ThumbnailRole:
        return entry.thumbnailURL;
    case DurationRole:
        return entry.formattedDuration();
    case KnownRole:
        return m_known.contains(entry.originalURL);
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
    return {{TitleRole, "title"},       {ThumbnailRole, "thumbnailURL"},
            {DurationRole, "duration"}, {SelectedRole, "isSelected"},
            {URLRole, "url"},           {KnownRole, "isKnown"}};
}

bool PlaylistModel::canFilter() const
{
    return m_info.playlistEntries.size() >= fewestToFilter;
}

void PlaylistModel::setFilter(const QString &filter)
{
    if (filter == m_filter)
        return;
    m_filter = filter;
    show(matches());
    Q_EMIT filterChanged();
    Q_EMIT countLineChanged();
}

QString PlaylistModel::unseenLine() const
{
    if (!isFiltered())
        return {};
    QSet<QString> unseen = m_state.selectedPlaylistItems();
    for (const qsizetype shown : m_shown)
        unseen.remove(m_info.playlistEntries[shown].id);
    return unseen.isEmpty() ? QString() : u"%1 of them not shown"_s.arg(unseen.size());
}

// The entries that the filter lets through.
QList<qsizetype> PlaylistModel::matches() const
{
    QList<qsizetype> found;
    const QString wanted = m_filter.trimmed();
    for (qsizetype number = 0; number < m_info.playlistEntries.size(); ++number) {
        if (m_info.playlistEntries[number].title.contains(wanted, Qt::CaseInsensitive))
            found.append(number);
    }
    return found;
}

// Rows stay and become those of other entries, so that their cards stay as well: making
// new ones takes longer than a frame.
void PlaylistModel::show(const QList<qsizetype> &entries)
{
    m_anchor = -1;
    const int before = rowCount();
    const int after = static_cast<int>(entries.size());
    if (after < before) {
        beginRemoveRows({}, after, before - 1);
        m_shown.resize(after);
        endRemoveRows();
    }
    const int kept = std::min(before, after);
    const auto changed = std::mismatch(m_shown.cbegin(), m_shown.cend(), entries.cbegin());
    if (changed.first != m_shown.cend()) {
        const auto first = static_cast<int>(changed.first - m_shown.cbegin());
        std::copy_n(entries.cbegin(), kept, m_shown.begin());
        Q_EMIT dataChanged(index(first), index(kept - 1));
    }
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        m_shown = entries;
        endInsertRows();
    }
}

void PlaylistModel::toggle(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    const QString id = entry(row).id;
    AppState::EntrySelection selection = m_state.selectedPlaylistItems();
    if (!selection.remove(id))
        selection.insert(id);
    m_anchor = row;
    m_state.selectedPlaylistItems = selection;
}

void PlaylistModel::press(int row)
{
    if (QGuiApplication::keyboardModifiers() & Qt::ShiftModifier && m_anchor >= 0)
        extendTo(row);
    else
        toggle(row);
}

void PlaylistModel::moveTo(int row)
{
    if (!(QGuiApplication::keyboardModifiers() & Qt::ShiftModifier))
        m_anchor = row;
    else if (m_anchor >= 0)
        extendTo(row);
}

void PlaylistModel::extendTo(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    AppState::EntrySelection selection = m_state.selectedPlaylistItems();
    const bool isSelected = selection.contains(entry(m_anchor).id);
    for (int each = std::min(row, m_anchor); each <= std::max(row, m_anchor); ++each) {
        if (isSelected)
            selection.insert(entry(each).id);
        else
            selection.remove(entry(each).id);
    }
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

void PlaylistModel::selectShown()
{
    AppState::EntrySelection shown;
    for (const qsizetype number : std::as_const(m_shown))
        shown.insert(m_info.playlistEntries[number].id);
    m_state.selectedPlaylistItems = shown;
}

QSet<QString> PlaylistModel::known() const
{
    QSet<QString> known;
    if (m_urls.isEmpty())
        return known;
    for (const HistoryItem &record : m_state.history()) {
        if (m_urls.contains(record.url))
            known.insert(record.url);
    }
    return known;
}

void PlaylistModel::followHistory()
{
    QSet<QString> now = known();
    if (now == m_known)
        return;
    m_known = std::move(now);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {KnownRole});
}

void PlaylistModel::followSelection()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {SelectedRole});
    Q_EMIT countLineChanged();
}
