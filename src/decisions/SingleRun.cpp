// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleRun.h"

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
