// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BusName.h"

#include <QObject>

class MprisPlayer;

/// What the desktop is told about the chosen item.
struct NowPlaying
{
    QString id; ///< of the item
    QString title;
    QString artist;
    QString artURL;
    QString url;
    double duration = 0;     ///< seconds; 0 while it is unknown
    double volume = 1;       ///< from 0 to 1
    bool isPlayable = false; ///< otherwise there is nothing to pause or seek in
    bool isPaused = false;
    bool hasNext = false;
    bool hasPrevious = false;

    bool operator==(const NowPlaying &other) const = default;
};

/// The desktop's media control and media keys, by MPRIS on the session bus. It is on the
/// bus only while something is shown; without a bus it does nothing, and it never waits for one.
/// Main thread.
class MediaControl : public QObject
{
    Q_OBJECT

public:
    explicit MediaControl(const QDBusConnection &bus = QDBusConnection::sessionBus());
    ~MediaControl() override;

    void show(const NowPlaying &nowPlaying);
    void hide();
    /// Seconds; read on request.
    void setPosition(double position) { m_position = position; }

    [[nodiscard]] const NowPlaying &shown() const { return m_shown; }
    [[nodiscard]] double position() const { return m_position; }

Q_SIGNALS:
    // What the user asks for.
    void playRequested();
    void pauseRequested();
    void togglePauseRequested();
    void stopRequested();
    void nextRequested();
    void previousRequested();
    void seekRequested(double position); ///< in seconds
    void volumeRequested(double volume);
    void raiseRequested();

    /// To be emitted when the position has jumped, in seconds.
    void sought(double position);

private:
    void announceChanges(const QVariantMap &before) const;

    QDBusConnection m_bus;
    MprisPlayer *m_player; // owned by this, as its child
    BusName m_name;
    bool m_isShown = false;
    NowPlaying m_shown;
    double m_position = 0;
};
