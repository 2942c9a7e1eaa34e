// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaSession.h"

#include "ShownText.h"

MediaSession::MediaSession(AppState &state, MediaControl &control, Inhibitor &inhibitor)
    : m_state(state)
    , m_control(control)
    , m_inhibitor(inhibitor)
    , m_panel(state)
{
    const MediaPlayer &player = state.avPlayer;
    connect(&m_panel, &PlayerPanelPresenter::changed, this, &MediaSession::show);
    connect(&m_panel, &PlayerPanelPresenter::presenceChanged, this, &MediaSession::show);
    connect(&player, &MediaPlayer::itemChanged, this, &MediaSession::show);
    connect(&player, &MediaPlayer::statusChanged, this, &MediaSession::show);
    connect(&player, &MediaPlayer::soundChanged, this, &MediaSession::show);
    connect(&player, &MediaPlayer::sought, &control, &MediaControl::sought);
    connectRequests();
}

void MediaSession::connectRequests()
{
    MediaPlayer &player = m_state.avPlayer;
    connect(&m_control, &MediaControl::playRequested, &player, &MediaPlayer::resume);
    connect(&m_control, &MediaControl::pauseRequested, &player, &MediaPlayer::pause);
    connect(&m_control, &MediaControl::togglePauseRequested, &player, &MediaPlayer::togglePause);
    connect(&m_control, &MediaControl::seekRequested, &player, &MediaPlayer::seek);
    connect(&m_control, &MediaControl::volumeRequested, &player, &MediaPlayer::setVolume);
    connect(&m_control, &MediaControl::stopRequested, &m_panel, &PlayerPanelPresenter::stop);
    connect(&m_control, &MediaControl::nextRequested, &m_panel, &PlayerPanelPresenter::playNext);
    connect(&m_control, &MediaControl::previousRequested, &m_panel,
            &PlayerPanelPresenter::playPrevious);
}

void MediaSession::show()
{
    const MediaPlayer &player = m_state.avPlayer;
    m_inhibitor.setInhibited(player.hasItem() && !player.isPaused());
    m_control.setPosition(player.position());
    if (!m_panel.isPresent())
        m_control.hide();
    else if (const NowPlaying now = nowPlaying(); now != m_control.shown())
        m_control.show(now);
}

NowPlaying MediaSession::nowPlaying() const
{
    const MediaPlayer &player = m_state.avPlayer;
    const SearchResult &result = *m_state.nowPlaying();
    return {.id = result.id,
            .title = shownLine(result.title),
            .artist = shownLine(result.uploader),
            .artURL = result.thumbnailURL,
            .url = result.videoURL,
            .duration = player.duration() > 0 ? player.duration() : result.duration.value_or(0),
            .volume = player.volume(),
            .isPlayable = player.hasItem(),
            .isPaused = player.isPaused(),
            .hasNext = m_panel.hasNext(),
            .hasPrevious = m_panel.hasPrevious()};
}
