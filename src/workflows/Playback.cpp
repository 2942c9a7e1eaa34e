// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "ReplyAwaiter.h"

#include <algorithm>

void AppState::setupAutoPlayNext()
{
    connect(&avPlayer, &MediaPlayer::playedToEnd, this,
            [this] { postUnlessClosing([this] { playNext(); }); });
    connect(&avPlayer, &MediaPlayer::failed, this, [this](const QString &message) {
        if (nowPlaying() && !isLoadingStream())
            playerError = message;
    });
    connect(&avPlayer, &MediaPlayer::expired, this, &AppState::renewStream);
    connect(&avPlayer, &MediaPlayer::statusChanged, this, &AppState::resolveNextAhead);
}

std::optional<qsizetype> AppState::currentPlayIndex() const
{
    if (!nowPlaying())
        return {};
    const Results &results = browseResults();
    const auto found = std::find_if(results.begin(), results.end(), [this](const auto &result) {
        return result.id == nowPlaying()->id;
    });
    return found == results.end() ? std::nullopt : std::optional(found - results.begin());
}

// By value: the argument may be an element of what changes here.
void AppState::playBrowseResult(SearchResult result) // NOLINT(performance-unnecessary-value-param)
{
    if (nowPlaying() && nowPlaying()->id == result.id) {
        stopPlayback();
        return;
    }
    cancelStreamLoad();
    nowPlaying = result;
    isLoadingStream = true;
    playerError = std::nullopt;
    avPlayer.pause();
    avPlayer.replaceCurrentItem({});
    m_hasRenewedStream = false;
    streamLoadTask.emplace();
    lookAfter(loadStream(result, {}, streamLoadTask->get_token()));
}

// A pause stays when the stream goes on somewhere; otherwise playback starts.
QCoro::Task<> AppState::loadStream(SearchResult result, std::optional<double> position,
                                   std::stop_token task)
{
    const QString videoURL = result.videoURL;
    try {
        const QUrl url = co_await requestStream(videoURL);
        if (task.stop_requested())
            co_return;
        avPlayer.replaceCurrentItem(MediaItem{.url = url, .start = position.value_or(0)});
        if (!position)
            avPlayer.play();
    } catch (const DescribedError &error) {
        if (task.stop_requested())
            co_return;
        playerError = error.errorDescription();
    }
    isLoadingStream = false;
}

// Once for each choice: a site that refuses again means it.
void AppState::renewStream(const QString &message, double position)
{
    if (!nowPlaying() || isLoadingStream())
        return;
    if (m_hasRenewedStream) {
        playerError = message;
        return;
    }
    m_hasRenewedStream = true;
    cancelStreamLoad();
    isLoadingStream = true;
    streamLoadTask.emplace();
    lookAfter(loadStream(*nowPlaying(), position, streamLoadTask->get_token()));
}

void AppState::stopPlayback()
{
    cancelStreamLoad();
    m_streamAhead.forget();
    avPlayer.pause();
    avPlayer.replaceCurrentItem({});
    nowPlaying = std::nullopt;
    isLoadingStream = false;
    playerError = std::nullopt;
}

void AppState::playNext()
{
    if (const auto next = nextResult())
        playBrowseResult(*next);
}

std::optional<SearchResult> AppState::nextResult() const
{
    const auto index = currentPlayIndex();
    if (!index || *index >= browseResults().size() - 1)
        return {};
    return browseResults()[*index + 1];
}

void AppState::resolveNextAhead()
{
    if (m_isClosing || !avPlayer.hasItem() || avPlayer.isPaused()
        || !m_streamAhead.isDue(avPlayer.position(), avPlayer.duration()))
        return;
    // What has the same identifier would be stopped, not played.
    if (const auto next = nextResult(); next && next->id != nowPlaying()->id)
        m_streamAhead.resolve(next->videoURL);
}

void AppState::cancelStreamLoad()
{
    if (streamLoadTask)
        streamLoadTask->request_stop();
    streamLoadTask.reset();
}
