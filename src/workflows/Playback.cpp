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
    streamLoadTask.emplace();
    spawn([this, result, task = streamLoadTask->get_token()] { return loadStream(result, task); });
}

QCoro::Task<> AppState::loadStream(SearchResult result, std::stop_token task)
{
    const QString videoURL = result.videoURL;
    try {
        const QUrl url = co_await requestStream(videoURL);
        if (task.stop_requested())
            co_return;
        avPlayer.replaceCurrentItem(MediaItem{url});
        avPlayer.play();
    } catch (const DescribedError &error) {
        if (task.stop_requested())
            co_return;
        playerError = error.errorDescription();
    }
    isLoadingStream = false;
}

void AppState::stopPlayback()
{
    cancelStreamLoad();
    avPlayer.pause();
    avPlayer.replaceCurrentItem({});
    nowPlaying = std::nullopt;
    isLoadingStream = false;
    playerError = std::nullopt;
}

void AppState::playNext()
{
    const auto index = currentPlayIndex();
    if (index && *index < browseResults().size() - 1)
        playBrowseResult(browseResults()[*index + 1]);
}

void AppState::cancelStreamLoad()
{
    if (streamLoadTask)
        streamLoadTask->request_stop();
    streamLoadTask.reset();
}
