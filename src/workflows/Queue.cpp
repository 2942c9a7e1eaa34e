// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "QueueRun.h"
#include "ReplyAwaiter.h"
#include "URLKind.h"

using namespace Qt::StringLiterals;

void AppState::addURLToQueue(const QString &url)
{
    const QString trimmed = url.trimmed();
    if (trimmed.isEmpty())
        return;
    const auto item = std::make_shared<DownloadItem>(trimmed);
    item->status = Status::Fetching{};
    queue = queue() + Queue{item};
    spawn([this, item] { return fetchForQueue(item); });
}

QCoro::Task<> AppState::fetchForQueue(std::shared_ptr<DownloadItem> item)
{
    const QString url = item->url;
    const bool asPlaylist = namesPlaylist(url);
    try {
        const VideoInfo info = co_await requestInfo(url, asPlaylist);
        if (asPlaylist) {
            queue = expanded(queue(), item, info);
        } else {
            item->info = info;
            item->status = Status::Waiting{};
        }
    } catch (const DescribedError &error) {
        item->status = Status::Failed{error.errorDescription()};
    }
}

void AppState::addURLsToQueue(const QStringList &urls)
{
    Queue items;
    for (const QString &url : urls) {
        const auto item = std::make_shared<DownloadItem>(url.trimmed());
        item->status = Status::Fetching{};
        items.append(item);
    }
    queue = queue() + items;
    spawn([this, items] { return fetchOneByOne(items); });
}

QCoro::Task<> AppState::fetchOneByOne(Queue items)
{
    for (const auto &item : items) {
        co_await fetchForQueue(item);
    }
}

void AppState::startQueueDownload()
{
    if (queue().isEmpty() || isQueueDownloading())
        return;
    QueueRun queueRun{.items = {},
                      .quality = runQuality(multiFormat(), multiQuality()),
                      .folder = resolvedDownloadDir(),
                      .pending = 0};
    isQueueDownloading = true;
    unsetPause();
    queueRun.items = inactive(queue());
    QList<PendingDownload> pending;
    for (const auto &item : std::as_const(queueRun.items))
        pending.append(pendingDownload(taskOf(*item), queueRun.quality));
    queueRun.pending = m_pending.begin(pending);
    totalDownloadCount = queueRun.items.size();
    currentDownloadIndex = 0;
    spawn([this, queueRun] { return runQueue(queueRun); });
}

QCoro::Task<> AppState::runQueue(QueueRun queueRun)
{
    for (qsizetype position = 0; position < queueRun.items.size(); ++position) {
        co_await downloadItem(queueRun, position);
        m_pending.endFile(queueRun.pending);
    }
    isQueueDownloading = false;
    unsetPause();
    currentDownloadTitle = QString();
    currentDownloadIndex = 0;
    totalDownloadCount = 0;
    sendCompleteNotification(u"Queue"_s, queueRun.items.size());
}

QCoro::Task<> AppState::downloadItem(QueueRun queueRun, qsizetype position)
{
    const auto item = queueRun.items[position];
    const DownloadJob job{taskOf(*item), queueRun.quality, queueRun.folder};
    currentDownloadIndex = position + 1;
    currentDownloadTitle = item->title();
    item->status = Status::Downloading{};
    // Weakly, since the worker may be the last to release these.
    const auto setStatus = [weak = std::weak_ptr(item)](const DownloadStatus &status) {
        if (const auto strong = weak.lock())
            strong->status = status;
    };
    const DownloadReports reports{
        .onProgress =
            [=](double progress, const QString &speed, const QString &eta) {
                setStatus(Status::Downloading{progress, speed, eta});
            },
        .onProcessing = [=] { setStatus(Status::Processing{}); }};
    try {
        const QString savedPath = co_await requestDownload(job, reports);
        item->status = Status::Done{savedPath};
        addToHistory(historyRecord(job, savedPath));
    } catch (const DescribedError &error) {
        item->status = Status::Failed{error.errorDescription()};
    }
}

void AppState::clearQueue()
{
    const Queue before = queue();
    queue = active(before);
    if (queue().size() < before.size())
        Q_EMIT queueCleared(before);
}

void AppState::restoreQueue(const Queue &before)
{
    Queue restored = before;
    for (const auto &item : queue()) {
        if (!before.contains(item))
            restored.append(item);
    }
    queue = restored;
}

void AppState::removeFromQueue(const QUuid &id)
{
    Queue rest = queue();
    rest.removeIf([&id](const auto &item) { return item->id == id; });
    queue = rest;
}
