// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadJob.h"

QualityOption runQuality(MediaFormat format, const QualityOption &selected)
{
    return format == MediaFormat::mp3 ? QualityOption::best(format) : selected;
}

PendingDownload pendingDownload(const DownloadTask &task, const QualityOption &quality)
{
    return {.url = task.url,
            .title = task.title,
            .format = quality.outputExt,
            .quality = quality.label};
}

HistoryItem historyRecord(const DownloadJob &job, const QString &savedPath)
{
    return {
        .id = QUuid::createUuid(),
        .title = job.task.title,
        .thumbnailURL = job.task.thumbnailURL,
        .url = job.task.url,
        .format = job.quality.outputExt,
        .quality = job.quality.label,
        .savedPath = savedPath.isEmpty() ? std::nullopt : std::optional(savedPath),
        .date = ReferenceDate::now(),
    };
}
