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
        void requestAuthorization() override { ++requests; }
        void post(const UserNotification &notification) override { posted.append(notification); }
        int requests = 0;
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
        QStringList selected;
        QStringList opened;
    };
    class FixedFolders : public Folders
    {
    public:
        [[nodiscard]] QStringList downloads() const override { return paths; }
        QStringList paths;
    };

    std::shared_ptr<RecordingNotifier> notifier = std::make_shared<RecordingNotifier>();
    std::shared_ptr<RecordingSound> sound = std::make_shared<RecordingSound>();
    std::shared_ptr<RecordingFileViewer> fileViewer = std::make_shared<RecordingFileViewer>();
    std::shared_ptr<FixedFolders> folders = std::make_shared<FixedFolders>();

    [[nodiscard]] PlatformServices services() const
    {
        return {.notifier = notifier, .sound = sound, .fileViewer = fileViewer, .folders = folders};
    }
};
