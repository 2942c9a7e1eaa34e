// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "Closing.h"
#include "DownloadArguments.h"
#include "DownloadJob.h"
#include "ReplyAwaiter.h"

namespace {

bool wasLaunched(const DescribedError &error)
{
    const auto *const ofTool = dynamic_cast<const YTDLPError *>(&error);
    return !ofTool || ofTool->launch() == YTDLPError::Launch::succeeded;
}

} // namespace

template<typename Value>
ReplyAwaiter<Value> AppState::request(std::function<void(Completion<Value>)> start)
{
    Q_EMIT operationStarted();
    return {m_mailbox, std::move(start), [this](const DescribedError *error) {
                if (m_isClosing)
                    throw Closing();
                if (error)
                    Q_EMIT operationFailed(error->errorDescription(), wasLaunched(*error));
            }};
}

ReplyAwaiter<VideoInfo> AppState::requestInfo(const QString &url, bool asPlaylist)
{
    return request<VideoInfo>([this, url, asPlaylist, browser = cookiesBrowser()](
                                  const Completion<VideoInfo> &completion) {
        if (asPlaylist)
            service.fetchPlaylistInfo(url, browser, completion);
        else
            service.fetchInfo(url, browser, completion);
    });
}

ReplyAwaiter<AppState::Results> AppState::requestSearch(const QString &query, int limit)
{
    return request<Results>([this, query, limit](const Completion<Results> &completion) {
        service.search(query, limit, completion);
    });
}

ReplyAwaiter<QUrl> AppState::requestStream(const QString &videoURL)
{
    return request<QUrl>([this, videoURL](const Completion<QUrl> &completion) {
        if (!m_streamAhead.handOver(videoURL, completion))
            service.getStreamURL(videoURL, completion);
    });
}

ReplyAwaiter<QString> AppState::requestDownload(const DownloadJob &job,
                                                const DownloadReports &reports,
                                                const std::stop_token &stop)
{
    const QStringList arguments = downloadArguments({.cookiesBrowser = cookiesBrowser(),
                                                     .speedLimit = speedLimit(),
                                                     .quality = job.quality,
                                                     .folder = job.folder,
                                                     .url = job.task.url});
    // Reports travel like the completion, so that none overtakes it.
    const ProgressHandler onProgress = [this, handle = reports.onProgress](double progress,
                                                                           const QString &speed,
                                                                           const QString &eta) {
        postUnlessClosing([=] { handle(progress, speed, eta); });
    };
    const ProcessingHandler onProcessing = [this, handle = reports.onProcessing] {
        postUnlessClosing(handle);
    };
    return request<QString>([=, this](const Completion<QString> &completion) {
        service.runProcessWithProgress(arguments, onProgress, onProcessing, completion, stop);
    });
}
