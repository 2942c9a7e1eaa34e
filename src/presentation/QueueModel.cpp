// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueueModel.h"

#include "DownloadLabel.h"
#include "ShownText.h"
#include "StatusName.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

QString statusText(const DownloadStatus &status)
{
    switch (status.kind()) {
    case DownloadStatus::Case::downloading:
        return QStringLiteral("%1  ETA %2").arg(status.speed(), status.eta());
    case DownloadStatus::Case::done:
        return QFileInfo(status.path()).fileName();
    case DownloadStatus::Case::failed:
        return status.message();
    default:
        return {};
    }
}

bool hasFile(const DownloadStatus &status)
{
    return status.kind() == DownloadStatus::Case::done && !status.path().isEmpty();
}

} // namespace

QueueModel::QueueModel(AppState &state)
    : m_state(state)
{
    reset(state.queue);
    connect(&state, &AppState::queueChanged, this, &QueueModel::follow);
    connect(&state, &AppState::isQueueDownloadingChanged, this, &QueueModel::downloadButtonChanged);
    connect(this, &QueueModel::readyCountChanged, this, &QueueModel::downloadButtonChanged);
}

QString QueueModel::downloadButtonLabel() const
{
    if (m_state.isQueueDownloading)
        return QStringLiteral("Downloading...");
    if (m_readyCount == 0)
        return QStringLiteral("Nothing to download");
    return downloadLabel(m_readyCount);
}

bool QueueModel::canDownload() const
{
    return !m_state.isQueueDownloading && m_readyCount > 0;
}

int QueueModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant QueueModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const DownloadItem &item = *m_items[index.row()].item;
    const DownloadStatus &status = item.status;
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return shownLine(item.title());
    case ThumbnailRole:
        return item.info() ? item.info()->thumbnailURL : QString();
    case PlaceholderRole:
        return item.info() ? QStringLiteral("photo") : QStringLiteral("play.rectangle.fill");
    case StatusRole:
        return statusName(status);
    case StatusLineRole:
        return shownLine(statusText(status));
    case StatusTextRole:
        return shownText(statusText(status));
    case BadgeRole:
        return status.badgeLabel();
    case ProgressRole:
        return status.progress();
    case CanRevealRole:
        return hasFile(status);
    default:
        return {};
    }
}

QHash<int, QByteArray> QueueModel::roleNames() const
{
    return {{TitleRole, "title"},   {ThumbnailRole, "thumbnailURL"}, {PlaceholderRole, "symbol"},
            {StatusRole, "status"}, {StatusLineRole, "statusLine"},  {StatusTextRole, "statusText"},
            {BadgeRole, "badge"},   {ProgressRole, "progress"},      {CanRevealRole, "canReveal"}};
}

void QueueModel::reveal(int row)
{
    if (row < 0 || row >= count())
        return;
    const DownloadStatus &status = m_items[row].item->status;
    if (hasFile(status))
        m_state.revealInFinder(status.path());
}

void QueueModel::remove(int row)
{
    if (row >= 0 && row < count())
        m_state.removeFromQueue(m_items[row].item->id);
}

void QueueModel::follow()
{
    const AppState::Queue &queue = m_state.queue;
    const int before = count();
    removeMissing(queue);
    const bool isPrefix = m_items.size() <= queue.size()
        && std::equal(m_items.begin(), m_items.end(), queue.begin(),
                      [](const Row &row, const auto &item) { return row.item == item; });
    if (isPrefix)
        append(queue.mid(m_items.size()));
    else
        reset(queue);
    if (count() != before)
        Q_EMIT countChanged();
}

// From the end, by as few removals as there are gaps.
void QueueModel::removeMissing(const AppState::Queue &queue)
{
    QSet<const DownloadItem *> kept;
    for (const auto &item : queue)
        kept.insert(item.get());
    int end = count();
    while (end > 0) {
        if (kept.contains(m_items[end - 1].item.get())) {
            --end;
            continue;
        }
        int first = end - 1;
        while (first > 0 && !kept.contains(m_items[first - 1].item.get()))
            --first;
        beginRemoveRows({}, first, end - 1);
        int ready = 0;
        for (int row = first; row < end; ++row) {
            m_items[row].item->disconnect(this);
            ready += m_items[row].isReady ? 1 : 0;
        }
        m_items.remove(first, end - first);
        renumber();
        endRemoveRows();
        changeReadyCount(-ready);
        end = first;
    }
}

void QueueModel::append(const AppState::Queue &added)
{
    if (added.isEmpty())
        return;
    beginInsertRows({}, count(), count() + static_cast<int>(added.size()) - 1);
    int ready = 0;
    for (const auto &item : added) {
        m_items.append(watched(item));
        ready += m_items.last().isReady ? 1 : 0;
    }
    renumber();
    endInsertRows();
    changeReadyCount(ready);
}

void QueueModel::reset(const AppState::Queue &queue)
{
    beginResetModel();
    for (const Row &row : std::as_const(m_items))
        row.item->disconnect(this);
    m_items.clear();
    int ready = 0;
    for (const auto &item : queue) {
        m_items.append(watched(item));
        ready += m_items.last().isReady ? 1 : 0;
    }
    renumber();
    endResetModel();
    changeReadyCount(ready - m_readyCount);
}

void QueueModel::renumber()
{
    m_rows.clear();
    for (int row = 0; row < count(); ++row)
        m_rows[m_items[row].item.get()] = row;
}

QueueModel::Row QueueModel::watched(const std::shared_ptr<DownloadItem> &item)
{
    const auto follow = [this, observed = item.get()] { followItem(observed); };
    connect(item.get(), &DownloadItem::statusChanged, this, follow);
    connect(item.get(), &DownloadItem::infoChanged, this, follow);
    return {.item = item, .isReady = isReady(*item)};
}

void QueueModel::followItem(const DownloadItem *item)
{
    const int row = m_rows.value(item);
    const bool wasReady = m_items[row].isReady;
    m_items[row].isReady = isReady(*item);
    const QModelIndex changed = index(row);
    Q_EMIT dataChanged(changed, changed);
    changeReadyCount(int(m_items[row].isReady) - int(wasReady));
}

void QueueModel::changeReadyCount(int change)
{
    if (change == 0)
        return;
    m_readyCount += change;
    Q_EMIT readyCountChanged();
}

bool QueueModel::isReady(const DownloadItem &item)
{
    return item.status().kind() == DownloadStatus::Case::waiting;
}
