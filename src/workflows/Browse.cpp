// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "DownloadJob.h"
#include "QueueRun.h"
#include "ReplyAwaiter.h"

namespace {

constexpr int resultLimit = 25;

} // namespace

void AppState::searchYouTube()
{
    const QString query = browseSearchQuery().trimmed();
    if (query.isEmpty() || isBrowseSearching())
        return;
    isBrowseSearching = true;
    browseSearchError = std::nullopt;
    spawn([this, query] { return search(query); });
}

QCoro::Task<> AppState::search(QString query)
{
    try {
        const Results results = co_await requestSearch(query, resultLimit);
        browseResults = results;
    } catch (const DescribedError &error) {
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
    const DownloadJob job{.task = {result.videoURL, result.title, result.thumbnailURL},
                          .quality =
                              QualityOption::best(isAudio ? MediaFormat::mp3 : MediaFormat::mp4),
                          .folder = resolvedDownloadDir()};
    setBrowseStatus(key, Status::Downloading{});
    setBrowseProgress(key, 0);
    spawn([this, key, job] { return downloadResult(key, job); });
}

QCoro::Task<> AppState::downloadResult(QString key, DownloadJob job)
{
    const DownloadReports reports{
        .onProgress =
            [=, this](double progress, const QString &speed, const QString &eta) {
                setBrowseStatus(key, Status::Downloading{progress, speed, eta});
                setBrowseProgress(key, progress);
            },
        .onProcessing = [=, this] { setBrowseStatus(key, Status::Processing{}); }};
    const int pending = m_pending.begin({pendingDownload(job.task, job.quality)});
    try {
        const QString savedPath = co_await requestDownload(job, reports);
        setBrowseStatus(key, Status::Done{savedPath});
        addToHistory(historyRecord(job, savedPath));
        sendCompleteNotification(job.task.title, 1);
    } catch (const DescribedError &error) {
        setBrowseStatus(key, Status::Failed{error.errorDescription()});
    }
    m_pending.endRun(pending);
}

void AppState::setBrowseStatus(const QString &key, const DownloadStatus &status)
{
    DownloadStatuses statuses = browseDownloadStatuses();
    statuses.insert(key, status);
    browseDownloadStatuses = statuses;
}

void AppState::setBrowseProgress(const QString &key, double progress)
{
    DownloadFractions fractions = browseDownloadProgress();
    fractions.insert(key, progress);
    browseDownloadProgress = fractions;
}
