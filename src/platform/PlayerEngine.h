// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>
#include <QUrl>

#include <functional>
#include <memory>

/// The state of a player.
struct PlayerStatus
{
    bool isBuffering = false; ///< waits for the stream
    double position = 0;      ///< seconds
    double duration = 0;      ///< seconds; 0 while it is unknown
    double loadedTo = 0;      ///< seconds; how far it could play without the network

    bool operator==(const PlayerStatus &other) const = default;
};

/// What plays a stream behind MediaPlayer. It is loaded when it is first needed, so the
/// program knows nothing but this header. All calls are made on the thread that made it;
/// events arrive there, too, never from inside a call.
class PlayerEngine
{
    Q_DISABLE_COPY_MOVE(PlayerEngine)

public:
    /// Events, about the stream that was loaded last only.
    struct Events
    {
        std::function<void(const PlayerStatus &)> statusChanged;
        std::function<void(const QImage &)> pictureChanged;
        std::function<void()> ended;
        /// With a text for the user; nothing plays any more.
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
    /// The size wanted for the picture, in pixels of the screen.
    virtual void setPictureSize(const QSize &size) = 0;
};

/// Makes the engine; nothing where there is none, which `error` explains.
using PlayerEngineFactory =
    std::function<std::unique_ptr<PlayerEngine>(PlayerEngine::Events events, QString &error)>;
