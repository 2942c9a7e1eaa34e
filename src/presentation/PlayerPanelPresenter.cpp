// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerPanelPresenter.h"

#include "Duration.h"
#include "ShownText.h"

using namespace Qt::StringLiterals;

PlayerPanelPresenter::PlayerPanelPresenter(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::nowPlayingChanged, &AppState::isLoadingStreamChanged,
          &AppState::playerErrorChanged, &AppState::browseResultsChanged,
          &AppState::browseDownloadStatusesChanged, &AppState::browseDownloadProgressChanged})
        connect(&state, signal, this, &PlayerPanelPresenter::follow);
    connect(&state, &AppState::nowPlayingChanged, this, &PlayerPanelPresenter::presenceChanged);
    connect(player(), &MediaPlayer::statusChanged, this, &PlayerPanelPresenter::timesChanged);
}

void PlayerPanelPresenter::follow()
{
    if (isPresent())
        Q_EMIT changed();
}

QString PlayerPanelPresenter::title() const
{
    return state().nowPlaying() ? shownLine(state().nowPlaying()->title) : QString();
}

QString PlayerPanelPresenter::url() const
{
    return state().nowPlaying() ? state().nowPlaying()->videoURL : QString();
}

QString PlayerPanelPresenter::errorText() const
{
    return shownText(state().playerError().value_or(QString()));
}

QString PlayerPanelPresenter::place() const
{
    const auto index = state().currentPlayIndex();
    const QString number = index ? QString::number(*index + 1) : u"–"_s;
    return u"%1 / %2"_s.arg(number).arg(state().browseResults().size());
}

QString PlayerPanelPresenter::elapsed() const
{
    return clockText(player()->position());
}

QString PlayerPanelPresenter::total() const
{
    return clockText(player()->duration());
}

bool PlayerPanelPresenter::hasPrevious() const
{
    return state().currentPlayIndex().value_or(0) > 0;
}

bool PlayerPanelPresenter::hasNext() const
{
    const auto index = state().currentPlayIndex();
    return index && *index < state().browseResults().size() - 1;
}

StatusLook PlayerPanelPresenter::video() const
{
    return look(false);
}

StatusLook PlayerPanelPresenter::audio() const
{
    return look(true);
}

void PlayerPanelPresenter::playPrevious()
{
    if (hasPrevious())
        playAt(-1);
}

void PlayerPanelPresenter::playNext()
{
    if (hasNext())
        playAt(1);
}

void PlayerPanelPresenter::download(bool isAudio)
{
    if (state().nowPlaying())
        state().browseDownload(*state().nowPlaying(), isAudio);
}

void PlayerPanelPresenter::stop()
{
    state().stopPlayback();
}

void PlayerPanelPresenter::playAt(qsizetype offset)
{
    state().playBrowseResult(state().browseResults()[*state().currentPlayIndex() + offset]);
}

StatusLook PlayerPanelPresenter::look(bool isAudio) const
{
    const auto &result = state().nowPlaying();
    return downloadButtonLook(state(), result ? result->id : QString(), isAudio);
}
