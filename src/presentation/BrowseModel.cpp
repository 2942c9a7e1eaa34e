// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseModel.h"

#include "ShownText.h"
#include "StatusLook.h"

using namespace Qt::StringLiterals;

BrowseModel::BrowseModel(AppState &state)
    : m_state(state)
    , m_results(state.browseResults())
{
    connect(&state, &AppState::browseResultsChanged, this, &BrowseModel::follow);
    connect(&state, &AppState::isBrowseSearchingChanged, this, &BrowseModel::areaChanged);
    connect(&state, &AppState::browseSearchErrorChanged, this, &BrowseModel::areaChanged);
    connect(&state, &AppState::nowPlayingChanged, this,
            [this] { updateRoles({IsNowPlayingRole}); });
    const auto updateLooks = [this] { updateRoles({VideoRole, AudioRole}); };
    connect(&state, &AppState::browseDownloadStatusesChanged, this, updateLooks);
    connect(&state, &AppState::browseDownloadProgressChanged, this, updateLooks);
}

BrowseModel::Area BrowseModel::area() const
{
    if (m_state.isBrowseSearching())
        return Area::Searching;
    if (m_state.browseSearchError())
        return Area::Failed;
    return m_results.isEmpty() ? Area::Empty : Area::Results;
}

QString BrowseModel::errorText() const
{
    return shownText(m_state.browseSearchError().value_or(QString()));
}

QString BrowseModel::countText() const
{
    return u"%1 results"_s.arg(m_results.size());
}

int BrowseModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_results.size());
}

QVariant BrowseModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const SearchResult &result = m_results[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return shownLine(result.title);
    case URLRole:
        return result.videoURL;
    case UploaderRole:
        return shownLine(result.uploader);
    case DurationRole:
        return result.formattedDuration();
    case ThumbnailRole:
        return result.thumbnailURL;
    case IsNowPlayingRole:
        return m_state.nowPlaying() && m_state.nowPlaying()->id == result.id;
    case VideoRole:
    case AudioRole:
        return QVariant::fromValue(downloadButtonLook(m_state, result.id, role == AudioRole));
    default:
        return {};
    }
}

QHash<int, QByteArray> BrowseModel::roleNames() const
{
    return {{TitleRole, "title"},
            {UploaderRole, "uploader"},
            {DurationRole, "duration"},
            {ThumbnailRole, "thumbnailURL"},
            {IsNowPlayingRole, "isNowPlaying"},
            {URLRole, "url"},
            {VideoRole, "video"},
            {AudioRole, "audio"}};
}

void BrowseModel::play(int row)
{
    if (isRow(row))
        m_state.playBrowseResult(m_results[row]);
}

void BrowseModel::download(int row, bool isAudio)
{
    if (isRow(row))
        m_state.browseDownload(m_results[row], isAudio);
}

void BrowseModel::follow()
{
    beginResetModel();
    m_results = m_state.browseResults();
    endResetModel();
    Q_EMIT areaChanged();
}

void BrowseModel::updateRoles(const QList<int> &roles)
{
    if (!m_results.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), roles);
}
