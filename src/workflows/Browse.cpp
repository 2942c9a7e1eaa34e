// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "BrowseDownload.h"
#include "DownloadArguments.h"
#include "QueueRun.h"
#include "ReplyAwaiter.h"
#include "SingleRun.h"

namespace {

constexpr int resultLimit = 25;

} // namespace

void AppState::searchYouTube()
{
    const QString query = browseSearchQuery().trimmed();
    if (query.isEmpty() || isBrowseSearching)
        return;
    isBrowseSearching = true;
    browseSearchError = Text();
    spawn([this, query] { return search(query); });
}

QCoro::Task<> AppState::search(QString query)
{
    try {
        const Results results = co_await requestSearch(query, resultLimit);
        if (m_isClosing)
            co_return;
        browseResults = results;
    } catch (const DescribedError &error) {
        if (m_isClosing)
            co_return;
        browseSearchError = error.errorDescription();
    }
    isBrowseSearching = false;
}

void AppState::browseDownload(const SearchResult &result, bool isAudio)
{
    const QString key = SearchResult::downloadKey(result.id, isAudio);
    const auto entry = browseDownloadStatuses().constFind(key);
    if (entry != browseDownloadStatuses().constEnd() && isActive(*entry))
        return;
    const BrowseDownload download{
        .result = result,
        .key = key,
        .quality = QualityOption::best(isAudio ? MediaFormat::mp3 : MediaFormat::mp4),
        .folder = resolvedDownloadDir()};
    setBrowseStatus(key, DownloadStatus::downloading(0, QString(), QString()));
    setBrowseProgress(key, 0);
    spawn([this, download] { return downloadResult(download); });
}

QCoro::Task<> AppState::downloadResult(BrowseDownload download)
{
    const QString key = download.key;
    const QStringList arguments = downloadArguments({.cookiesBrowser = cookiesBrowser,
                                                     .speedLimit = speedLimit,
                                                     .quality = download.quality,
                                                     .folder = download.folder,
                                                     .address = download.result.videoURL});
    const ProgressHandler onProgress = [=, this](double progress, const QString &speed,
                                                 const QString &eta) {
        setBrowseStatus(key, DownloadStatus::downloading(progress, speed, eta));
        setBrowseProgress(key, progress);
    };
    const ProcessingHandler onProcessing = [=, this] {
        setBrowseStatus(key, DownloadStatus::processing());
    };
    try {
        const QString savedPath = co_await requestDownload(arguments, onProgress, onProcessing);
        if (m_isClosing)
            co_return;
        setBrowseStatus(key, DownloadStatus::done(savedPath));
        const SearchResult &result = download.result;
        addToHistory(historyRecord({result.videoURL, result.title, result.thumbnailURL},
                                   download.quality, savedPath));
        sendCompleteNotification(result.title, 1);
    } catch (const DescribedError &error) {
        if (!m_isClosing)
            setBrowseStatus(key, DownloadStatus::failed(error.errorDescription()));
    }
}

void AppState::setBrowseStatus(const QString &key, const DownloadStatus &status)
{
    DownloadStatuses statuses = browseDownloadStatuses;
    statuses.insert(key, status);
    browseDownloadStatuses = statuses;
}

void AppState::setBrowseProgress(const QString &key, double progress)
{
    DownloadFractions fractions = browseDownloadProgress;
    fractions.insert(key, progress);
    browseDownloadProgress = fractions;
}
