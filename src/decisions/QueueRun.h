// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DownloadItem.h"
#include "DownloadJob.h"

#include <QList>

#include <memory>

using QueueItems = QList<std::shared_ptr<DownloadItem>>;

/// All that a run of the queue needs, fixed when it starts.
struct QueueRun
{
    QueueItems items;
    QualityOption quality;
    QString folder;
    int pending = 0; ///< the run's number in PendingDownloads
};

/// Whether an entry is busy: it is being fetched, downloaded or processed.
bool isActive(const DownloadStatus &status);

/// The busy entries, and the others, which a run takes and clearing removes.
QueueItems active(const QueueItems &queue);
QueueItems inactive(const QueueItems &queue);

/// The queue with the playlist's placeholder replaced by its entries, at the end. An
/// entry without a URL gets the placeholder's.
QueueItems expanded(const QueueItems &queue, const std::shared_ptr<DownloadItem> &placeholder,
                    const VideoInfo &playlist);

/// The entry as one file of a run.
DownloadTask taskOf(const DownloadItem &item);
