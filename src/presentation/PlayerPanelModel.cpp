// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerPanelModel.h"

#include "Duration.h"
#include "ShownText.h"
#include "StatusName.h"

PlayerPanelModel::PlayerPanelModel(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::nowPlayingChanged, &AppState::isLoadingStreamChanged,
          &AppState::playerErrorChanged, &AppState::browseResultsChanged,
          &AppState::browseDownloadStatusesChanged, &AppState::browseDownloadProgressChanged})
        connect(&state, signal, this, &PlayerPanelModel::follow);
    connect(&state, &AppState::nowPlayingChanged, this, &PlayerPanelModel::presenceChanged);
    connect(player(), &AVPlayer::statusChanged, this, &PlayerPanelModel::timesChanged);
}

void PlayerPanelModel::follow()
{
    if (isPresent())
        Q_EMIT changed();
}

QString PlayerPanelModel::title() const
{
    return state().nowPlaying() ? shownLine(state().nowPlaying()->title) : QString();
}

QString PlayerPanelModel::errorText() const
{
    return shownText(state().playerError().value_or(QString()));
}

QString PlayerPanelModel::place() const
{
    const auto index = state().currentPlayIndex();
    const QString number = index ? QString::number(*index + 1) : QStringLiteral("–");
    return QStringLiteral("%1 / %2").arg(number).arg(state().browseResults().size());
}

QString PlayerPanelModel::elapsed() const
{
    return clockText(player()->position());
}

QString PlayerPanelModel::total() const
{
    return clockText(player()->duration());
}

bool PlayerPanelModel::hasPrevious() const
{
    return state().currentPlayIndex().value_or(0) > 0;
}

bool PlayerPanelModel::hasNext() const
{
    const auto index = state().currentPlayIndex();
    return index && *index < state().browseResults().size() - 1;
}

QString PlayerPanelModel::videoStatus() const
{
    return browseStatusName(state(), id(), false);
}

QString PlayerPanelModel::videoSpoken() const
{
    return browseSpoken(state(), id(), false);
}

double PlayerPanelModel::videoProgress() const
{
    return browseProgress(state(), id(), false);
}

QString PlayerPanelModel::audioStatus() const
{
    return browseStatusName(state(), id(), true);
}

QString PlayerPanelModel::audioSpoken() const
{
    return browseSpoken(state(), id(), true);
}

double PlayerPanelModel::audioProgress() const
{
    return browseProgress(state(), id(), true);
}

void PlayerPanelModel::playPrevious()
{
    if (hasPrevious())
        playAt(-1);
}

void PlayerPanelModel::playNext()
{
    if (hasNext())
        playAt(1);
}

void PlayerPanelModel::download(bool isAudio)
{
    if (state().nowPlaying())
        state().browseDownload(*state().nowPlaying(), isAudio);
}

void PlayerPanelModel::stop()
{
    state().stopPlayback();
}

void PlayerPanelModel::playAt(qsizetype offset)
{
    state().playBrowseResult(state().browseResults()[*state().currentPlayIndex() + offset]);
}

QString PlayerPanelModel::id() const
{
    return state().nowPlaying() ? state().nowPlaying()->id : QString();
}
