// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlatformServices.h"

#include <QList>

/// A desktop that writes down what is asked of it.
struct RecordingDesktop
{
    class RecordingNotifier : public Notifier
    {
    public:
        void requestPermission() override
        {
            ++requests;
            if (onRequest)
                onRequest();
        }
        void post(const UserNotification &notification) override { posted.append(notification); }
        int requests = 0;
        std::function<void()> onRequest;
        QList<UserNotification> posted;
    };
    class RecordingSound : public SoundPlayer
    {
    public:
        void playCompletion() override { ++played; }
        int played = 0;
    };
    class RecordingFileViewer : public FileViewer
    {
    public:
        void select(const QString &path) override { selected.append(path); }
        void openFolder(const QString &path) override { opened.append(path); }
        void open(const QUrl &url) override { openedUrls.append(url.toString()); }
        QStringList selected;
        QStringList opened;
        QStringList openedUrls;
    };
    class FixedFolders : public Folders
    {
    public:
        [[nodiscard]] QStringList downloads() const override { return paths; }
        QStringList paths;
    };

    /// Plays nothing; tests say what happens to the item.
    class SilentEngine : public PlayerEngine
    {
    public:
        explicit SilentEngine(Events told)
            : events(std::move(told))
        {
        }
        void load(const QUrl &url, double start) override
        {
            urls.append(url);
            starts.append(start);
        }
        void unload() override { ++unloads; }
        void setPaused(bool paused) override { isPaused = paused; }
        void seek(double position) override { sought.append(position); }
        void setVolume(double wanted) override { volume = wanted; }
        void setMuted(bool muted) override { isMuted = muted; }
        void setWish(const PictureWish &wanted) override { wish = wanted; }
        Events events;
        QList<QUrl> urls;
        QList<double> starts;
        QList<double> sought;
        PictureWish wish;
        int unloads = 0;
        double volume = -1;
        bool isPaused = true;
        bool isMuted = false;
    };

    /// What plays in place of the silent one, if anything.
    PlayerEngineFactory realEngine;
    /// The engine, once it has been asked for.
    std::shared_ptr<SilentEngine *> engine = std::make_shared<SilentEngine *>(nullptr);
    /// What making one fails with, if anything.
    std::shared_ptr<QString> engineError = std::make_shared<QString>();

    std::shared_ptr<RecordingNotifier> notifier = std::make_shared<RecordingNotifier>();
    std::shared_ptr<RecordingSound> sound = std::make_shared<RecordingSound>();
    std::shared_ptr<RecordingFileViewer> fileViewer = std::make_shared<RecordingFileViewer>();
    std::shared_ptr<FixedFolders> folders = std::make_shared<FixedFolders>();

    [[nodiscard]] PlatformServices services() const
    {
        const auto makeEngine = [engine = engine, failure = engineError](
                                    PlayerEngine::Events events,
                                    QString &error) -> std::unique_ptr<PlayerEngine> {
            error = *failure;
            if (!failure->isEmpty())
                return nullptr;
            auto made = std::make_unique<SilentEngine>(std::move(events));
            *engine = made.get();
            return made;
        };
        return {.notifier = notifier,
                .sound = sound,
                .fileViewer = fileViewer,
                .folders = folders,
                .playerEngine = realEngine ? realEngine : makeEngine};
    }
};
