// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"
#include "FakeTool.h"
#include "Patience.h"
#include "Preferences.h"
#include "StandIns.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// An application state on a fake tool, a recording desktop and preferences of
/// its own.
struct StateFixture
{
    StateFixture()
    {
        desktop.folders->paths = {folder.path()};
        restart();
    }

    /// As if the program had been ended and started again; in between something may
    /// happen to the file of preferences.
    void restart(const std::function<void(const QString &)> &change = [](const QString &) {})
    {
        const QString path = folder.filePath(u"preferences.json"_s);
        state.reset();
        preferences.reset();
        change(path);
        preferences = std::make_unique<Preferences>(path);
        state = std::make_unique<AppState>(parts());
    }

    [[nodiscard]] AppStateParts parts() const
    {
        return {.service = service.get(),
                .preferences = preferences.get(),
                .platform = desktop.services()};
    }

    [[nodiscard]] bool hasEnded() const { return !state->isDownloading() && !state->isFetching(); }

    static VideoInfo video(const QString &id)
    {
        VideoInfo info;
        info.id = id;
        info.title = u"Title "_s + id;
        info.thumbnailURL = u"http://127.0.0.1/"_s + id;
        info.originalURL = u"https://example.org/watch?v="_s + id;
        return info;
    }

    static VideoInfo playlist(const QStringList &ids)
    {
        VideoInfo info;
        info.isPlaylist = true;
        info.title = u"Playlist (%1 videos)"_s.arg(ids.size());
        for (const QString &id : ids)
            info.playlistEntries.append(video(id));
        return info;
    }

    static SearchResult searchResult(const QString &id)
    {
        return {.id = id,
                .title = u"Title "_s + id,
                .uploader = {},
                .duration = {},
                .thumbnailURL = {},
                .videoURL = u"https://x/"_s + id};
    }

    static HistoryItem record(const QString &title, const QString &url = {})
    {
        return {.id = QUuid::createUuid(),
                .title = title,
                .thumbnailURL = {},
                .url = url,
                .format = u"mp4"_s,
                .quality = u"Best"_s,
                .savedPath = {},
                .date = ReferenceDate::now()};
    }

    QTemporaryDir folder;
    FakeTool tool;
    RecordingDesktop desktop;
    std::unique_ptr<YTDLPService> service =
        std::make_unique<YTDLPService>(QStringList{tool.path()});
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<AppState> state;
};
