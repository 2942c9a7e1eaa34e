// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "HistoryItem.h"
#include "QualityOption.h"
#include "VideoInfo.h"

#include <QList>
#include <QSet>
#include <QString>

/// One file of a run.
struct DownloadTask
{
    QString address;
    QString title;
    QString thumbnailURL;
};

/// All that a single-mode run needs, fixed at its start.
struct SingleRun
{
    QList<DownloadTask> tasks;
    QualityOption quality;
    QString folder;
    QString title; ///< what its end is announced by
};

/// The quality of a run: MP3 overrides whatever quality is selected.
QualityOption runQuality(MediaFormat format, const QualityOption &selected);

/// One task for a video; for a playlist one for each selected entry, in the
/// playlist's order.
QList<DownloadTask> runTasks(const VideoInfo &info, const QSet<QString> &selectedEntries);

/// What the end of a run is announced by.
QString runTitle(const VideoInfo &info);

/// The record of a finished file; an empty path counts as none. Dated now.
HistoryItem historyRecord(const DownloadTask &task, const QualityOption &quality,
                          const QString &savedPath);
