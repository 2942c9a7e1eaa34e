// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleRun.h"

QualityOption runQuality(MediaFormat format, const QualityOption &selected)
{
    return format == MediaFormat::mp3 ? QualityOption::best(format) : selected;
}

QList<DownloadTask> runTasks(const VideoInfo &info, const QSet<QString> &selectedEntries)
{
    const auto taskOf = [](const VideoInfo &video) {
        return DownloadTask{video.originalURL, video.title, video.thumbnailURL};
    };
    if (!info.isPlaylist)
        return {taskOf(info)};
    QList<DownloadTask> tasks;
    for (const VideoInfo &entry : info.playlistEntries) {
        if (selectedEntries.contains(entry.id))
            tasks.append(taskOf(entry));
    }
    return tasks;
}

QString runTitle(const VideoInfo &info)
{
    return info.isPlaylist ? info.playlistTitle.value_or(info.title) : info.title;
}

HistoryItem historyRecord(const DownloadTask &task, const QualityOption &quality,
                          const QString &savedPath)
{
    return {
        .id = QUuid::createUuid(),
        .title = task.title,
        .thumbnailURL = task.thumbnailURL,
        .url = task.address,
        .format = quality.outputExt,
        .quality = quality.label,
        .savedPath = savedPath.isEmpty() ? std::nullopt : std::optional(savedPath),
        .date = ReferenceDate::now(),
    };
}
