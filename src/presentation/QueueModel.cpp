// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueueModel.h"

#include "DownloadLabel.h"
#include "ShownText.h"
#include "StatusLook.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString statusText(const DownloadStatus &status)
{
    if (const auto *const downloading = std::get_if<Status::Downloading>(&status))
        return u"%1  ETA %2"_s.arg(downloading->speed, downloading->eta);
    if (const auto *const done = std::get_if<Status::Done>(&status))
        return QFileInfo(done->path).fileName();
    return messageOf(status);
}

} // namespace

QueueModel::QueueModel(AppState &state)
    : m_state(state)
{
    reset(state.queue());
    connect(&state, &AppState::queueChanged, this, &QueueModel::follow);
    connect(&state, &AppState::isPausedChanged, this, &QueueModel::followPause);
    connect(&state, &AppState::isQueueDownloadingChanged, this, &QueueModel::downloadButtonChanged);
    connect(this, &QueueModel::readyCountChanged, this, &QueueModel::downloadButtonChanged);
}

QString QueueModel::downloadButtonLabel() const
{
    if (m_state.isQueueDownloading())
        return u"Downloading..."_s;
    if (m_readyCount == 0)
        return u"Nothing to download"_s;
    return downloadLabel(m_readyCount);
}

bool QueueModel::canDownload() const
{
    return !m_state.isQueueDownloading() && m_readyCount > 0;
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
    const DownloadStatus &status = item.status();
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return shownLine(item.title());
    case ThumbnailRole:
        return item.info() ? item.info()->thumbnailURL : QString();
    case PlaceholderRole:
        return item.info() ? u"photo"_s : u"play.rectangle.fill"_s;
    case StatusLineRole:
        return shownLine(statusText(status));
    case StatusTextRole:
        return shownText(statusText(status));
    case BadgeRole:
        return QVariant::fromValue(badgeLook(status, m_state.isPaused()));
    case URLRole:
        return item.url;
    case PathRole:
        return pathOf(status);
    case MessageRole:
        return shownText(messageOf(status));
    case CanRevealRole:
        return !pathOf(status).isEmpty();
    default:
        return {};
    }
}

QHash<int, QByteArray> QueueModel::roleNames() const
{
    return {{TitleRole, "title"},
            {ThumbnailRole, "thumbnailURL"},
            {PlaceholderRole, "symbol"},
            {StatusLineRole, "statusLine"},
            {StatusTextRole, "statusText"},
            {BadgeRole, "badge"},
            {CanRevealRole, "canReveal"},
            {URLRole, "url"},
            {PathRole, "path"},
            {MessageRole, "message"}};
}

void QueueModel::reveal(int row)
{
    if (row < 0 || row >= count())
        return;
    const QString path = pathOf(m_items[row].item->status());
    if (!path.isEmpty())
        m_state.revealInFinder(path);
}

void QueueModel::remove(int row)
{
    if (row >= 0 && row < count())
        m_state.removeFromQueue(m_items[row].item->id);
}

void QueueModel::follow()
{
    const AppState::Queue &queue = m_state.queue();
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

// From the end, with one removal for each gap.
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

void QueueModel::followPause()
{
    if (!m_items.isEmpty())
        Q_EMIT dataChanged(index(0), index(count() - 1), {BadgeRole});
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
    return kindOf(item.status()) == StatusKind::Waiting;
}
