// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>
#include <QUrl>

#include <functional>
#include <memory>

/// What a player is at.
struct PlayerStatus
{
    bool isBuffering = false; ///< waits for the stream
    double position = 0;      ///< seconds
    double duration = 0;      ///< seconds; 0 while it is unknown
    double loadedTo = 0;      ///< seconds; how far it could play without the stream

    bool operator==(const PlayerStatus &other) const = default;
};

/// What plays a stream, behind MediaPlayer. It is loaded when it is first needed, so
/// nothing but this header is known of it. All calls are made on the thread that
/// made it, where the events are told, too, never from inside of a call.
class PlayerEngine
{
    Q_DISABLE_COPY_MOVE(PlayerEngine)

public:
    /// What it tells, of the URL that was loaded last alone.
    struct Events
    {
        std::function<void(const PlayerStatus &)> statusChanged;
        std::function<void(const QImage &)> pictureChanged;
        std::function<void()> ended;
        /// With a text for the user; nothing is played any more.
        std::function<void(const QString &)> failed;
    };

    PlayerEngine() = default;
    virtual ~PlayerEngine() = default;

    /// Plays this from its beginning, paused if it was.
    virtual void load(const QUrl &url) = 0;
    virtual void unload() = 0;
    virtual void setPaused(bool isPaused) = 0;
    /// To so many seconds from the beginning.
    virtual void seek(double position) = 0;
    /// From 0 to 1.
    virtual void setVolume(double volume) = 0;
    virtual void setMuted(bool isMuted) = 0;
    /// How large the picture is wanted, in pixels of the screen.
    virtual void setPictureSize(const QSize &size) = 0;
};

/// Makes the engine; nothing where there is none, which `error` explains.
using PlayerEngineFactory =
    std::function<std::unique_ptr<PlayerEngine>(PlayerEngine::Events events, QString &error)>;
