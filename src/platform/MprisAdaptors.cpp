// SPDX-License-Identifier: GPL-3.0-or-later
#include "MprisAdaptors.h"

#include "ApplicationId.h"

#include <QUrl>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double unitsPerSecond = 1e6; // the interface counts microseconds

qlonglong unitsOf(double seconds)
{
    return std::llround(seconds * unitsPerSecond);
}

/// Whoever reads it may open it, whatever it is.
bool isOfTheWeb(const QString &url)
{
    const QString scheme = QUrl(url).scheme();
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
    return u"Quillon"_s;
}

QString MprisRoot::desktopEntry() const
{
    return applicationId;
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
        return u"Stopped"_s;
    return m_control.shown().isPaused ? u"Paused"_s : u"Playing"_s;
}

QVariantMap MprisPlayer::metadata() const
{
    const NowPlaying &shown = m_control.shown();
    QVariantMap metadata{{u"mpris:trackid"_s, QVariant::fromValue(track())},
                         {u"xesam:title"_s, shown.title}};
    if (shown.duration > 0)
        metadata[u"mpris:length"_s] = unitsOf(shown.duration);
    if (!shown.artist.isEmpty())
        metadata[u"xesam:artist"_s] = QStringList{shown.artist};
    if (isOfTheWeb(shown.artURL))
        metadata[u"mpris:artUrl"_s] = shown.artURL;
    if (isOfTheWeb(shown.url))
        metadata[u"xesam:url"_s] = shown.url;
    return metadata;
}

double MprisPlayer::volume() const
{
    return m_control.shown().volume;
}

void MprisPlayer::setVolume(double volume)
{
    if (std::isfinite(volume)) // NaN passes through bounds
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

QVariantMap MprisPlayer::properties() const
{
    return {{u"PlaybackStatus"_s, playbackStatus()},
            {u"Metadata"_s, metadata()},
            {u"Volume"_s, volume()},
            {u"CanGoNext"_s, canGoNext()},
            {u"CanGoPrevious"_s, canGoPrevious()},
            {u"CanPlay"_s, canPlay()},
            {u"CanPause"_s, canPlay()},
            {u"CanSeek"_s, canSeek()}};
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
    // A late request is meant for the previous track.
    if (canSeek() && track == this->track() && target >= 0 && target <= m_control.shown().duration)
        Q_EMIT m_control.seekRequested(target);
}

QDBusObjectPath MprisPlayer::track() const
{
    // Object paths consist of letters, digits and underscores.
    const QByteArray name = "id" + m_control.shown().id.toUtf8().toHex();
    return QDBusObjectPath(u"/quillon/track/"_s + QString::fromLatin1(name));
}
