// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DownloadJob.h"
#include "VideoInfo.h"

#include <QList>
#include <QSet>
#include <QString>

#include <stop_token>

/// All that a single-mode run needs, fixed when it starts.
struct SingleRun
{
    QList<DownloadTask> tasks;
    QualityOption quality;
    QString folder;
    QString title;        ///< what its end is announced with
    std::stop_token stop; ///< requested by the user
    int pending = 0;      ///< the run's number in PendingDownloads
};

/// One task for a video; for a playlist one for each selected entry, in the
/// playlist's order.
QList<DownloadTask> runTasks(const VideoInfo &info, const QSet<QString> &selectedEntries);

/// What the end of a run is announced with.
QString runTitle(const VideoInfo &info);
