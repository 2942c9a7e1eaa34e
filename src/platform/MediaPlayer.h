// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlayerEngine.h"

#include <QHash>
#include <QObject>

#include <optional>

/// A stream to play.
struct MediaItem
{
    QUrl url;
    double start = 0; ///< seconds
};

/// The program's one media player. Its engine is loaded with the first item. Main thread.
class MediaPlayer : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool hasItem READ hasItem NOTIFY itemChanged)
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY statusChanged)
    Q_PROPERTY(bool hasEnded READ hasEnded NOTIFY statusChanged)
    Q_PROPERTY(bool isBuffering READ isBuffering NOTIFY statusChanged)
    Q_PROPERTY(double position READ position NOTIFY statusChanged)
    Q_PROPERTY(double duration READ duration NOTIFY statusChanged)
    Q_PROPERTY(double loadedTo READ loadedTo NOTIFY statusChanged)
    Q_PROPERTY(double volume READ volume WRITE setVolume NOTIFY soundChanged)
    Q_PROPERTY(bool isMuted READ isMuted WRITE setMuted NOTIFY soundChanged)

public:
    explicit MediaPlayer(PlayerEngineFactory makeEngine);
    ~MediaPlayer() override;

    Q_INVOKABLE void pause();
    void play();
    /// Plays this instead, or nothing. Only http and https are opened.
    void replaceCurrentItem(const std::optional<MediaItem> &item);

    // What the player's controls show and change.
    [[nodiscard]] bool hasItem() const { return m_hasItem; }
    [[nodiscard]] bool isPaused() const { return m_isPaused; }
    /// Whether it was played to its end and has not been touched since.
    [[nodiscard]] bool hasEnded() const { return m_hasEnded; }
    [[nodiscard]] bool isBuffering() const { return m_status.isBuffering; }
    [[nodiscard]] double position() const { return m_status.position; }
    [[nodiscard]] double duration() const { return m_status.duration; }
    [[nodiscard]] double loadedTo() const { return m_status.loadedTo; }
    [[nodiscard]] double volume() const { return m_volume; }
    [[nodiscard]] bool isMuted() const { return m_isMuted; }
    /// The current picture; null without an item.
    [[nodiscard]] const QImage &picture() const { return m_picture; }
    /// The proportions in which it is to be shown.
    [[nodiscard]] QSize pictureProportions() const { return m_pictureProportions; }

    /// Continues, from the beginning if it has ended.
    void resume();
    Q_INVOKABLE void togglePause();
    /// Seeks to a position in seconds, within the item.
    Q_INVOKABLE void seek(double position);
    void setVolume(double volume);
    void setMuted(bool isMuted);
    /// What this view wants of the picture; of several, the largest wish counts. Views
    /// that are not seen, or go, take theirs back by an empty one.
    void setWish(const QObject *view, const PictureWish &wish);

Q_SIGNALS:
    /// The item has been played to its end. It stays, paused.
    void playedToEnd();
    /// The item cannot be opened or has broken off; it is gone.
    void failed(const QString &message);
    /// The same, because the item's URL has run out while it played: another one of the
    /// same stream could go on there.
    void expired(const QString &message, double position);
    void itemChanged();
    void statusChanged();
    void soundChanged();
    void pictureChanged();
    /// The user has moved the position, in seconds.
    void sought(double position);

private:
    bool loadEngine();
    void failLater(const QString &error);
    void handleStatus(const PlayerStatus &status);
    void handleEnd();
    void handlePicture(const QImage &picture, const QSize &proportions);
    void handleFailure(const QString &message);
    void handleExpiry(const QString &message);

    PlayerEngineFactory m_makeEngine;
    std::unique_ptr<PlayerEngine> m_engine;
    QString m_engineError;
    PlayerStatus m_status;
    QImage m_picture;
    QSize m_pictureProportions;
    QHash<const QObject *, PictureWish> m_wishes;
    PictureWish m_wish; // the largest
    double m_volume = 1;
    int m_itemNumber = 0;
    bool m_hasItem = false;
    bool m_isPaused = true;
    bool m_hasEnded = false;
    bool m_isMuted = false;
};
