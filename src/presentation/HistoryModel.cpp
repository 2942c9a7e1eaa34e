// SPDX-License-Identifier: GPL-3.0-or-later
#include "HistoryModel.h"

#include "RelativeDate.h"
#include "ShownText.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool sameRecords(const AppState::History &left, qsizetype leftStart, const AppState::History &right,
                 qsizetype count)
{
    return std::equal(
        left.begin() + leftStart, left.begin() + leftStart + count, right.begin(),
        [](const HistoryItem &one, const HistoryItem &other) { return one.id == other.id; });
}

} // namespace

HistoryModel::HistoryModel(AppState &state)
    : m_state(state)
    , m_records(state.history())
{
    connect(&state, &AppState::historyChanged, this, &HistoryModel::follow);
    m_clock.setSingleShot(true);
    connect(&m_clock, &QTimer::timeout, this, &HistoryModel::updateDates);
    scheduleDates();
}

int HistoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_records.size());
}

QVariant HistoryModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const HistoryItem &record = m_records[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return shownLine(record.title);
    case ThumbnailRole:
        return record.thumbnailURL;
    case PlaceholderRole:
        return record.format == u"mp3" ? u"music.note"_s : u"play.rectangle.fill"_s;
    case DateRole:
        return relativeDate(record.date, ReferenceDate::now());
    case DetailsRole:
        return shownLine(record.format.toUpper() + u" · "_s + record.quality);
    case CanRevealRole:
        return record.savedPath.has_value();
    case URLRole:
        return record.url;
    case PathRole:
        return record.savedPath.value_or(QString());
    default:
        return {};
    }
}

QHash<int, QByteArray> HistoryModel::roleNames() const
{
    return {{TitleRole, "title"},
            {ThumbnailRole, "thumbnailURL"},
            {PlaceholderRole, "symbol"},
            {DateRole, "date"},
            {DetailsRole, "details"},
            {CanRevealRole, "canReveal"},
            {URLRole, "url"},
            {PathRole, "path"}};
}

void HistoryModel::reveal(int row)
{
    if (row >= 0 && row < m_records.size())
        m_state.revealInFinder(m_records[row].savedPath.value_or(QString()));
}

void HistoryModel::refetch(int row)
{
    if (row < 0 || row >= m_records.size() || m_records[row].url.trimmed().isEmpty())
        return;
    m_state.mode = AppMode::single;
    m_state.singleURL = m_records[row].url;
    m_state.fetchAsPlaylist = false;
    m_state.fetchSingleInfo();
}

void HistoryModel::remove(int row)
{
    if (row >= 0 && row < m_records.size())
        m_state.removeFromHistory(m_records[row].id);
}

void HistoryModel::clearAll()
{
    m_state.clearHistory();
}

void HistoryModel::follow()
{
    const AppState::History &records = m_state.history();
    const bool wasEmpty = isEmpty();
    if (!insertNewest(records)) {
        beginResetModel();
        m_records = records;
        endResetModel();
    }
    if (isEmpty() != wasEmpty)
        Q_EMIT isEmptyChanged();
    scheduleDates();
}

// True when the current rows, except perhaps for the oldest, follow new ones. Also the first
// ones are inserted: after a reset, a view that draws no frames (it is minimized) would lose
// what is inserted.
bool HistoryModel::insertNewest(const AppState::History &records)
{
    if (records.isEmpty())
        return false;
    if (m_records.isEmpty()) {
        beginInsertRows({}, 0, static_cast<int>(records.size()) - 1);
        m_records = records;
        endInsertRows();
        return true;
    }
    constexpr qsizetype mostNew = 16;
    const auto end = records.begin() + std::min(mostNew, records.size());
    const auto oldFirst = std::find_if(records.begin(), end, [this](const HistoryItem &each) {
        return each.id == m_records.first().id;
    });
    const qsizetype added = oldFirst - records.begin();
    const qsizetype kept = std::min(records.size() - added, m_records.size());
    if (oldFirst == end || records.size() > added + kept
        || !sameRecords(records, added, m_records, kept))
        return false;
    if (kept < m_records.size()) {
        beginRemoveRows({}, static_cast<int>(kept), static_cast<int>(m_records.size()) - 1);
        m_records.erase(m_records.begin() + kept, m_records.end());
        endRemoveRows();
    }
    if (added > 0) {
        beginInsertRows({}, 0, static_cast<int>(added) - 1);
        m_records = records;
        endInsertRows();
    }
    return true;
}

void HistoryModel::updateDates()
{
    Q_EMIT dataChanged(index(0), index(rowCount() - 1), {DateRole});
    scheduleDates();
}

void HistoryModel::scheduleDates()
{
    if (isEmpty()) {
        m_clock.stop();
        return;
    }
    const double now = ReferenceDate::now().seconds;
    double nearest = std::numeric_limits<double>::max();
    for (const HistoryItem &record : std::as_const(m_records))
        nearest = std::min(nearest, std::abs(now - record.date.seconds));
    m_clock.start(relativeDateLifetime(nearest));
}
