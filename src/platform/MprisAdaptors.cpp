// SPDX-License-Identifier: GPL-3.0-or-later
#include "MprisAdaptors.h"

#include <QUrl>

#include <algorithm>
#include <cmath>

namespace {

constexpr double unitsPerSecond = 1e6; // the interface counts microseconds

qlonglong unitsOf(double seconds)
{
    return std::llround(seconds * unitsPerSecond);
}

/// Who reads it may open it, whatever it is.
bool isOfTheWeb(const QString &address)
{
    const QString scheme = QUrl(address).scheme();
    return scheme == u"http" || scheme == u"https";
}

} // namespace

MprisRoot::MprisRoot(MediaControl *control)
    : QDBusAbstractAdaptor(control)
    , m_control(*control)
{
}

QString MprisRoot::identity() const
{
    return QStringLiteral("Quillon");
}

QString MprisRoot::desktopEntry() const
{
    return QStringLiteral("quillon");
}

void MprisRoot::Raise()
{
    Q_EMIT m_control.raiseRequested();
}

MprisPlayer::MprisPlayer(MediaControl *control)
    : QDBusAbstractAdaptor(control)
    , m_control(*control)
{
    connect(control, &MediaControl::sought, this,
            [this](double position) { Q_EMIT Seeked(unitsOf(position)); });
}

QString MprisPlayer::playbackStatus() const
{
    if (!m_control.shown().isPlayable)
        return QStringLiteral("Stopped");
    return m_control.shown().isPaused ? QStringLiteral("Paused") : QStringLiteral("Playing");
}

QVariantMap MprisPlayer::metadata() const
{
    const NowPlaying &shown = m_control.shown();
    QVariantMap metadata{{QStringLiteral("mpris:trackid"), QVariant::fromValue(track())},
                         {QStringLiteral("xesam:title"), shown.title}};
    if (shown.duration > 0)
        metadata[QStringLiteral("mpris:length")] = unitsOf(shown.duration);
    if (!shown.artist.isEmpty())
        metadata[QStringLiteral("xesam:artist")] = QStringList{shown.artist};
    if (isOfTheWeb(shown.artAddress))
        metadata[QStringLiteral("mpris:artUrl")] = shown.artAddress;
    if (isOfTheWeb(shown.address))
        metadata[QStringLiteral("xesam:url")] = shown.address;
    return metadata;
}

double MprisPlayer::volume() const
{
    return m_control.shown().volume;
}

void MprisPlayer::setVolume(double volume)
{
    if (std::isfinite(volume)) // bounds do not hold what is no number
        Q_EMIT m_control.volumeRequested(volume);
}

qlonglong MprisPlayer::position() const
{
    return unitsOf(m_control.position());
}

bool MprisPlayer::canGoNext() const
{
    return m_control.shown().hasNext;
}

bool MprisPlayer::canGoPrevious() const
{
    return m_control.shown().hasPrevious;
}

bool MprisPlayer::canPlay() const
{
    return m_control.shown().isPlayable;
}

bool MprisPlayer::canSeek() const
{
    return m_control.shown().isPlayable && m_control.shown().duration > 0;
}

QVariantMap MprisPlayer::told() const
{
    return {{QStringLiteral("PlaybackStatus"), playbackStatus()},
            {QStringLiteral("Metadata"), metadata()},
            {QStringLiteral("Volume"), volume()},
            {QStringLiteral("CanGoNext"), canGoNext()},
            {QStringLiteral("CanGoPrevious"), canGoPrevious()},
            {QStringLiteral("CanPlay"), canPlay()},
            {QStringLiteral("CanPause"), canPlay()},
            {QStringLiteral("CanSeek"), canSeek()}};
}

void MprisPlayer::Next()
{
    Q_EMIT m_control.nextRequested();
}

void MprisPlayer::Previous()
{
    Q_EMIT m_control.previousRequested();
}

void MprisPlayer::Pause()
{
    Q_EMIT m_control.pauseRequested();
}

void MprisPlayer::PlayPause()
{
    Q_EMIT m_control.togglePauseRequested();
}

void MprisPlayer::Stop()
{
    Q_EMIT m_control.stopRequested();
}

void MprisPlayer::Play()
{
    Q_EMIT m_control.playRequested();
}

void MprisPlayer::Seek(qlonglong offset)
{
    const double target = m_control.position() + static_cast<double>(offset) / unitsPerSecond;
    if (m_control.shown().duration > 0 && target > m_control.shown().duration)
        Q_EMIT m_control.nextRequested(); // as the interface wants it
    else if (canSeek())
        Q_EMIT m_control.seekRequested(std::max(0.0, target));
}

void MprisPlayer::SetPosition(const QDBusObjectPath &track, qlonglong position)
{
    const double target = static_cast<double>(position) / unitsPerSecond;
    // One that comes late is meant for what was played before.
    if (canSeek() && track == this->track() && target >= 0 && target <= m_control.shown().duration)
        Q_EMIT m_control.seekRequested(target);
}

QDBusObjectPath MprisPlayer::track() const
{
    // An object's path takes letters and digits alone.
    const QByteArray name = "id" + m_control.shown().id.toUtf8().toHex();
    return QDBusObjectPath(QStringLiteral("/quillon/track/") + QString::fromLatin1(name));
}
