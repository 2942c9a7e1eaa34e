// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "HistoryItem.h"
#include "PendingDownload.h"
#include "QualityOption.h"

#include <QString>

/// What a download is about.
struct DownloadTask
{
    QString url;
    QString title;
    QString thumbnailURL;
};

/// One file to download, in whichever mode, fixed when its run begins.
struct DownloadJob
{
    DownloadTask task;
    QualityOption quality;
    QString folder;
};

/// The quality of a run: MP3 overrides whatever quality is selected.
QualityOption runQuality(MediaFormat format, const QualityOption &selected);

/// What is kept of a file until it has been downloaded.
PendingDownload pendingDownload(const DownloadTask &task, const QualityOption &quality);

/// The record of a finished file, dated now; an empty path counts as none. The path of an
/// MP3 names the file that the audio was extracted from, since that is what the tool
/// reports.
HistoryItem historyRecord(const DownloadJob &job, const QString &savedPath);
