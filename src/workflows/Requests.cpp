// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

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
    return {m_mailbox, std::move(start), [this](const DescribedError &error) {
                if (!m_isClosing)
                    Q_EMIT operationFailed(error.errorDescription(), wasLaunched(error));
            }};
}

ReplyAwaiter<VideoInfo> AppState::requestInfo(const QString &address, bool asPlaylist)
{
    return request<VideoInfo>([this, address, asPlaylist, browser = cookiesBrowser()](
                                  const Completion<VideoInfo> &completion) {
        if (asPlaylist)
            service.fetchPlaylistInfo(address, browser, completion);
        else
            service.fetchInfo(address, browser, completion);
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
        service.getStreamURL(videoURL, completion);
    });
}

ReplyAwaiter<QString> AppState::requestDownload(const QStringList &arguments,
                                                const ProgressHandler &onProgress,
                                                const ProcessingHandler &onProcessing)
{
    // Reports take the same way as the completion, so that none overtakes it.
    const auto hop = [mailbox = m_mailbox, state = QPointer(this)](auto action) {
        mailbox->post([state, action] {
            if (state && !state->m_isClosing)
                action();
        });
    };
    const ProgressHandler hopProgress = [=](double progress, const QString &speed,
                                            const QString &eta) {
        hop([=] { onProgress(progress, speed, eta); });
    };
    const ProcessingHandler hopProcessing = [=] { hop(onProcessing); };
    return request<QString>([=, this](const Completion<QString> &completion) {
        service.runProcessWithProgress(arguments, hopProgress, hopProcessing, completion);
    });
}
