// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DownloadItem.h"
#include "DownloadJob.h"

#include <QList>

#include <memory>

using QueueItems = QList<std::shared_ptr<DownloadItem>>;

/// All that a run of the queue needs, fixed at its start.
struct QueueRun
{
    QueueItems items;
    QualityOption quality;
    QString folder;
};

/// Whether something is going on with an entry: it is fetched, downloaded or
/// processed.
bool isActive(const DownloadStatus &status);

/// The entries with which something is going on, and the others: those that a
/// run takes, and clearing removes.
QueueItems active(const QueueItems &queue);
QueueItems inactive(const QueueItems &queue);

/// The queue without the playlist's placeholder and with its entries at the end.
/// An entry without a URL gets the placeholder's.
QueueItems expanded(const QueueItems &queue, const std::shared_ptr<DownloadItem> &placeholder,
                    const VideoInfo &playlist);

/// The entry as one file of a run.
DownloadTask taskOf(const DownloadItem &item);
