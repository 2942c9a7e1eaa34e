// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaSession.h"

#include "ShownText.h"

MediaSession::MediaSession(AppState &state, MediaControl &control, SleepInhibitor &inhibitor)
    : m_state(state)
    , m_control(control)
    , m_inhibitor(inhibitor)
    , m_panel(state)
{
    const AVPlayer &player = state.avPlayer;
    connect(&m_panel, &PlayerPanelModel::changed, this, &MediaSession::show);
    connect(&m_panel, &PlayerPanelModel::presenceChanged, this, &MediaSession::show);
    connect(&player, &AVPlayer::itemChanged, this, &MediaSession::show);
    connect(&player, &AVPlayer::statusChanged, this, &MediaSession::show);
    connect(&player, &AVPlayer::soundChanged, this, &MediaSession::show);
    connect(&player, &AVPlayer::sought, &control, &MediaControl::sought);
    takeRequests();
}

void MediaSession::takeRequests()
{
    AVPlayer &player = m_state.avPlayer;
    connect(&m_control, &MediaControl::playRequested, &player, &AVPlayer::resume);
    connect(&m_control, &MediaControl::pauseRequested, &player, &AVPlayer::pause);
    connect(&m_control, &MediaControl::togglePauseRequested, &player, &AVPlayer::togglePause);
    connect(&m_control, &MediaControl::seekRequested, &player, &AVPlayer::seek);
    connect(&m_control, &MediaControl::volumeRequested, &player, &AVPlayer::setVolume);
    connect(&m_control, &MediaControl::stopRequested, &m_panel, &PlayerPanelModel::stop);
    connect(&m_control, &MediaControl::nextRequested, &m_panel, &PlayerPanelModel::playNext);
    connect(&m_control, &MediaControl::previousRequested, &m_panel,
            &PlayerPanelModel::playPrevious);
}

void MediaSession::show()
{
    const AVPlayer &player = m_state.avPlayer;
    m_inhibitor.setInhibited(player.hasItem() && !player.isPaused());
    m_control.setPosition(player.position());
    if (!m_panel.isPresent())
        m_control.hide();
    else if (const NowPlaying now = nowPlaying(); now != m_control.shown())
        m_control.show(now);
}

NowPlaying MediaSession::nowPlaying() const
{
    const AVPlayer &player = m_state.avPlayer;
    const SearchResult &result = *m_state.nowPlaying();
    return {.id = result.id,
            .title = shownLine(result.title),
            .artist = shownLine(result.uploader),
            .artAddress = result.thumbnailURL,
            .address = result.videoURL,
            .duration = player.duration() > 0 ? player.duration() : result.duration.value_or(0),
            .volume = player.volume(),
            .isPlayable = player.hasItem(),
            .isPaused = player.isPaused(),
            .hasNext = m_panel.hasNext(),
            .hasPrevious = m_panel.hasPrevious()};
}
