// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaPlayer.h"

#include <QTimer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

MediaPlayer::MediaPlayer(PlayerEngineFactory makeEngine)
    : m_makeEngine(std::move(makeEngine))
{
}

MediaPlayer::~MediaPlayer() = default;

void MediaPlayer::pause()
{
    m_isPaused = true;
    if (m_engine)
        m_engine->setPaused(true);
    Q_EMIT statusChanged();
}

void MediaPlayer::play()
{
    m_isPaused = false;
    if (m_engine)
        m_engine->setPaused(false);
    Q_EMIT statusChanged();
}

void MediaPlayer::replaceCurrentItem(const std::optional<MediaItem> &item)
{
    m_hasItem = item.has_value();
    m_hasEnded = false;
    ++m_itemNumber;
    m_picture = QImage();
    // Until the engine reports.
    m_status = {.isBuffering = m_hasItem, .position = item ? item->start : 0};
    Q_EMIT itemChanged();
    Q_EMIT statusChanged();
    Q_EMIT pictureChanged();
    if (!item) {
        if (m_engine)
            m_engine->unload();
        return;
    }
    const QString scheme = item->url.scheme().toLower();
    QString error;
    if (scheme != u"http" && scheme != u"https")
        error = u"The stream's URL is not one of the web"_s;
    else if (!loadEngine())
        error = m_engineError;
    if (error.isEmpty())
        m_engine->load(item->url, item->start);
    else
        failLater(error);
}

// Not from inside the call that sets the item.
void MediaPlayer::failLater(const QString &error)
{
    QTimer::singleShot(0, this, [this, error, number = m_itemNumber] {
        if (number == m_itemNumber)
            handleFailure(error);
    });
}

void MediaPlayer::resume()
{
    if (m_hasEnded)
        seek(0);
    play();
}

void MediaPlayer::togglePause()
{
    if (m_isPaused)
        resume();
    else
        pause();
}

void MediaPlayer::seek(double position)
{
    if (!m_hasItem || !m_engine)
        return;
    const double last = m_status.duration > 0 ? m_status.duration : position;
    const double target = std::clamp(position, 0.0, std::max(0.0, last));
    // It has arrived already, and can be played again.
    if (m_hasEnded && m_status.duration > 0 && target >= m_status.duration)
        return;
    m_status.position = target; // at once, for a user who drags
    m_hasEnded = false;
    m_engine->seek(target);
    Q_EMIT statusChanged();
    Q_EMIT sought(target);
}

void MediaPlayer::setVolume(double volume)
{
    m_volume = std::clamp(volume, 0.0, 1.0);
    if (m_engine)
        m_engine->setVolume(m_volume);
    Q_EMIT soundChanged();
}

void MediaPlayer::setMuted(bool isMuted)
{
    m_isMuted = isMuted;
    if (m_engine)
        m_engine->setMuted(isMuted);
    Q_EMIT soundChanged();
}

void MediaPlayer::setWish(const QObject *view, const PictureWish &wish)
{
    if (wish.size.isEmpty())
        m_wishes.remove(view);
    else
        m_wishes.insert(view, wish);
    const auto isSmaller = [](const PictureWish &one, const PictureWish &other) {
        return one.size.width() < other.size.width();
    };
    const auto largest = std::max_element(m_wishes.cbegin(), m_wishes.cend(), isSmaller);
    const PictureWish wanted = largest == m_wishes.cend() ? PictureWish() : *largest;
    if (wanted == m_wish)
        return;
    m_wish = wanted;
    if (m_engine)
        m_engine->setWish(m_wish);
}

bool MediaPlayer::loadEngine()
{
    if (m_engine)
        return true;
    m_engine = m_makeEngine(
        {.statusChanged = [this](const auto &status) { handleStatus(status); },
         .pictureChanged = [this](const auto &image,
                                  const auto &proportions) { handlePicture(image, proportions); },
         .ended = [this] { handleEnd(); },
         .failed = [this](const auto &message) { handleFailure(message); },
         .expired = [this](const auto &message) { handleExpiry(message); }},
        m_engineError);
    if (!m_engine)
        return false;
    m_engine->setPaused(m_isPaused);
    m_engine->setVolume(m_volume);
    m_engine->setMuted(m_isMuted);
    m_engine->setWish(m_wish);
    return true;
}

void MediaPlayer::handleStatus(const PlayerStatus &status)
{
    if (!m_hasItem)
        return;
    m_status = status;
    Q_EMIT statusChanged();
}

void MediaPlayer::handleEnd()
{
    if (!m_hasItem)
        return;
    m_hasEnded = true;
    pause();
    Q_EMIT playedToEnd();
}

void MediaPlayer::handlePicture(const QImage &picture, const QSize &proportions)
{
    if (!m_hasItem)
        return;
    m_picture = picture;
    m_pictureProportions = proportions;
    Q_EMIT pictureChanged();
}

void MediaPlayer::handleFailure(const QString &message)
{
    if (!m_hasItem)
        return;
    replaceCurrentItem({});
    Q_EMIT failed(message);
}

void MediaPlayer::handleExpiry(const QString &message)
{
    if (!m_hasItem)
        return;
    const double position = m_status.position;
    replaceCurrentItem({});
    Q_EMIT expired(message, position);
}
