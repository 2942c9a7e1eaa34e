// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueueRun.h"

bool isActive(const DownloadStatus &status)
{
    const auto kind = kindOf(status);
    return kind == StatusKind::Fetching || kind == StatusKind::Downloading
        || kind == StatusKind::Processing;
}

QueueItems active(const QueueItems &queue)
{
    QueueItems found = queue;
    found.removeIf([](const auto &item) { return !isActive(item->status()); });
    return found;
}

QueueItems inactive(const QueueItems &queue)
{
    QueueItems found = queue;
    found.removeIf([](const auto &item) { return isActive(item->status()); });
    return found;
}

QueueItems expanded(const QueueItems &queue, const std::shared_ptr<DownloadItem> &placeholder,
                    const VideoInfo &playlist)
{
    QueueItems items = queue;
    items.removeOne(placeholder);
    for (const VideoInfo &entry : playlist.playlistEntries) {
        const bool hasURL = !entry.originalURL.isEmpty();
        const auto item =
            std::make_shared<DownloadItem>(hasURL ? entry.originalURL : placeholder->url);
        item->info = entry;
        items.append(item);
    }
    return items;
}

DownloadTask taskOf(const DownloadItem &item)
{
    return {item.url, item.title(), item.info() ? item.info()->thumbnailURL : QString()};
}
