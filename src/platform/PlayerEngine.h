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

/// What those who show the picture want of it.
struct PictureWish
{
    QSize size; ///< in pixels of the screen; empty while nobody looks
    /// Whether a graphics card shows it. It enlarges for nothing, so a picture is then
    /// never larger than the stream's own.
    bool isForGraphicsCard = false;

    bool operator==(const PictureWish &other) const = default;
};

/// The size of a picture of these proportions that fills so much of the screen.
inline QSize fittedPicture(const QSize &proportions, const QSize &room)
{
    return proportions.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
}

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
        /// With the proportions in which it is to be shown.
        std::function<void(const QImage &, const QSize &)> pictureChanged;
        std::function<void()> ended;
        /// With a text for the user; nothing plays any more.
        std::function<void(const QString &)> failed;
        /// The same, because the site refuses a URL that it has served so far.
        std::function<void(const QString &)> expired;
    };

    PlayerEngine() = default;
    virtual ~PlayerEngine() = default;

    /// Plays this from so many seconds on, paused if it was.
    virtual void load(const QUrl &url, double start) = 0;
    virtual void unload() = 0;
    virtual void setPaused(bool isPaused) = 0;
    /// To so many seconds from the beginning.
    virtual void seek(double position) = 0;
    /// From 0 to 1.
    virtual void setVolume(double volume) = 0;
    virtual void setMuted(bool isMuted) = 0;
    virtual void setWish(const PictureWish &wish) = 0;
};

/// Makes the engine; nothing where there is none, which `error` explains.
using PlayerEngineFactory =
    std::function<std::unique_ptr<PlayerEngine>(PlayerEngine::Events events, QString &error)>;
