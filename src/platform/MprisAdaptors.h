// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MediaControl.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>

/// The two D-Bus interfaces of a media player, named as in MPRIS 2.2. They only
/// translate.
class MprisRoot : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ no CONSTANT)
    Q_PROPERTY(bool CanRaise READ yes CONSTANT)
    Q_PROPERTY(bool HasTrackList READ no CONSTANT)
    Q_PROPERTY(QString Identity READ identity CONSTANT)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry CONSTANT)
    Q_PROPERTY(QStringList SupportedUriSchemes READ none CONSTANT)
    Q_PROPERTY(QStringList SupportedMimeTypes READ none CONSTANT)

public:
    explicit MprisRoot(MediaControl *control);

    [[nodiscard]] bool yes() const { return true; }
    [[nodiscard]] bool no() const { return false; }
    [[nodiscard]] QStringList none() const { return {}; }
    [[nodiscard]] QString identity() const;
    [[nodiscard]] QString desktopEntry() const;

public Q_SLOTS:
    void Raise();
    void Quit() const { }

private:
    MediaControl &m_control;
};

class MprisPlayer : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double MinimumRate READ rate CONSTANT)
    Q_PROPERTY(double MaximumRate READ rate CONSTANT)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPlay)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ canControl CONSTANT)

public:
    explicit MprisPlayer(MediaControl *control);

    [[nodiscard]] QString playbackStatus() const;
    [[nodiscard]] double rate() const { return 1; }
    void setRate(double /*rate*/) const { } // there is no other
    [[nodiscard]] QVariantMap metadata() const;
    [[nodiscard]] double volume() const;
    void setVolume(double volume);
    [[nodiscard]] qlonglong position() const;
    [[nodiscard]] bool canGoNext() const;
    [[nodiscard]] bool canGoPrevious() const;
    [[nodiscard]] bool canPlay() const;
    [[nodiscard]] bool canSeek() const;
    [[nodiscard]] bool canControl() const { return true; }

    /// The properties whose changes are signalled; the position is read on request.
    [[nodiscard]] QVariantMap properties() const;

public Q_SLOTS:
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    void Stop();
    void Play();
    void Seek(qlonglong offset);
    void SetPosition(const QDBusObjectPath &track, qlonglong position);
    void OpenUri(const QString & /*url*/) const { }

Q_SIGNALS:
    void Seeked(qlonglong position);

private:
    [[nodiscard]] QDBusObjectPath track() const;

    MediaControl &m_control;
};
