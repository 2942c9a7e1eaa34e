// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "ReplyAwaiter.h"
#include "SingleRun.h"
#include "URLKind.h"

void AppState::fetchSingleInfo()
{
    const QString url = singleURL().trimmed();
    if (url.isEmpty())
        return;
    isFetching = true;
    fetchError = std::nullopt;
    singleInfo = std::nullopt;
    selectedPlaylistItems = EntrySelection();
    downloadStatus = Status::Idle{};
    spawn([this, url, asPlaylist = fetchesPlaylist(url, fetchAsPlaylist())] {
        return fetch(url, asPlaylist);
    });
}

QCoro::Task<> AppState::fetch(QString url, bool asPlaylist)
{
    try {
        const VideoInfo info = co_await requestInfo(url, asPlaylist);
        singleInfo = info;
        if (info.isPlaylist) {
            EntrySelection all;
            for (const VideoInfo &entry : info.playlistEntries)
                all.insert(entry.id);
            selectedPlaylistItems = all;
        }
        isFetching = false;
    } catch (const DescribedError &error) {
        fetchError = error.errorDescription();
        isFetching = false;
    }
}

void AppState::startSingleDownload()
{
    if (!singleInfo())
        return;
    SingleRun singleRun{.tasks = {},
                        .quality = runQuality(selectedFormat(), selectedQuality()),
                        .folder = {},
                        .title = runTitle(*singleInfo()),
                        .stop = {},
                        .pending = 0};
    m_failure.reset();
    m_stopSource = std::stop_source();
    singleRun.stop = m_stopSource.get_token();
    isDownloading = true;
    unsetPause();
    downloadProgress = 0;
    downloadSpeed = QString();
    downloadETA = QString();
    downloadStatus = Status::Running{};
    singleRun.folder = resolvedDownloadDir();
    singleRun.tasks = runTasks(*singleInfo(), selectedPlaylistItems());
    QList<PendingDownload> pending;
    for (const DownloadTask &task : std::as_const(singleRun.tasks))
        pending.append(pendingDownload(task, singleRun.quality));
    singleRun.pending = m_pending.begin(pending);
    totalDownloadCount = singleRun.tasks.size();
    currentDownloadIndex = 0;
    currentDownloadTitle = QString();
    spawn([this, singleRun] { return run(singleRun); });
}

QCoro::Task<> AppState::run(SingleRun singleRun)
{
    qsizetype position = 0;
    try {
        for (; position < singleRun.tasks.size(); ++position) {
            co_await downloadTask(singleRun, position);
            m_pending.endFile(singleRun.pending);
        }
        endRun(Status::Done{singleRun.folder});
        downloadProgress = 1.0;
        sendCompleteNotification(singleRun.title, singleRun.tasks.size());
    } catch (const DescribedError &error) {
        m_failure = {.position = position + 1,
                     .count = singleRun.tasks.size(),
                     .message = error.errorDescription(),
                     .wasStopped = singleRun.stop.stop_requested()};
        m_pending.endRun(singleRun.pending);
        endRun(Status::Failed{error.errorDescription()});
    }
}

QCoro::Task<> AppState::downloadTask(SingleRun singleRun, qsizetype position)
{
    const DownloadJob job{singleRun.tasks[position], singleRun.quality, singleRun.folder};
    currentDownloadIndex = position + 1;
    currentDownloadTitle = job.task.title;
    setLastReport(Report::none);
    downloadStatus = Status::Running{};
    downloadProgress = 0;
    const std::stop_token stop = singleRun.stop;
    const DownloadReports reports{
        .onProgress = [this](double progress, const QString &speed,
                             const QString &eta) { showProgress(progress, speed, eta); },
        .onProcessing = [this] { showProcessing(); }};
    const QString savedPath = co_await requestDownload(job, reports, stop);
    addToHistory(historyRecord(job, savedPath));
}

void AppState::resetDownload()
{
    downloadStatus = Status::Idle{};
    downloadProgress = 0;
    downloadSpeed = QString();
    downloadETA = QString();
    isDownloading = false;
    unsetPause();
    currentDownloadTitle = QString();
    currentDownloadIndex = 0;
    totalDownloadCount = 0;
}

void AppState::stopSingleDownload()
{
    m_stopSource.request_stop();
}

void AppState::showProgress(double progress, const QString &speed, const QString &eta)
{
    downloadProgress = progress;
    downloadSpeed = speed;
    downloadETA = eta;
    setLastReport(Report::progress);
}

void AppState::showProcessing()
{
    setLastReport(Report::processing);
    downloadStatus = Status::Processing{};
}

DownloadUIStatus AppState::displayedDownloadStatus() const
{
    const bool isProgressing =
        m_lastReport == Report::progress && kindOf(downloadStatus()) == StatusKind::Processing;
    return isProgressing ? DownloadUIStatus(Status::Running{}) : downloadStatus();
}

void AppState::setLastReport(Report report)
{
    const bool changes = m_lastReport != report;
    m_lastReport = report;
    if (changes)
        Q_EMIT displayedDownloadStatusChanged();
}

void AppState::endRun(const DownloadUIStatus &status)
{
    downloadStatus = status;
    isDownloading = false;
    unsetPause();
}
