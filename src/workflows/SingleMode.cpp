// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "Addresses.h"
#include "DownloadArguments.h"
#include "ReplyAwaiter.h"
#include "SingleRun.h"

void AppState::fetchSingleInfo()
{
    const QString address = singleURL().trimmed();
    if (address.isEmpty())
        return;
    isFetching = true;
    fetchError = Text();
    singleInfo = Info();
    selectedPlaylistItems = EntrySelection();
    downloadStatus = DownloadUIStatus::idle();
    spawn([this, address, asPlaylist = fetchesPlaylist(address, fetchAsPlaylist)] {
        return fetch(address, asPlaylist);
    });
}

QCoro::Task<> AppState::fetch(QString address, bool asPlaylist)
{
    try {
        const VideoInfo info = co_await requestInfo(address, asPlaylist);
        if (m_isClosing)
            co_return;
        singleInfo = info;
        if (info.isPlaylist) {
            EntrySelection all;
            for (const VideoInfo &entry : info.playlistEntries)
                all.insert(entry.id);
            selectedPlaylistItems = all;
        }
        isFetching = false;
    } catch (const DescribedError &error) {
        if (m_isClosing)
            co_return;
        fetchError = error.errorDescription();
        isFetching = false;
    }
}

void AppState::startSingleDownload()
{
    if (!singleInfo())
        return;
    SingleRun singleRun{.tasks = {},
                        .quality = runQuality(selectedFormat, selectedQuality),
                        .folder = {},
                        .title = runTitle(*singleInfo())};
    isDownloading = true;
    unsetPause();
    downloadProgress = 0;
    downloadSpeed = QString();
    downloadETA = QString();
    downloadStatus = DownloadUIStatus::downloading();
    singleRun.folder = resolvedDownloadDir();
    singleRun.tasks = runTasks(*singleInfo(), selectedPlaylistItems);
    totalDownloadCount = singleRun.tasks.size();
    currentDownloadIndex = 0;
    currentDownloadTitle = QString();
    spawn([this, singleRun] { return run(singleRun); });
}

QCoro::Task<> AppState::run(SingleRun singleRun)
{
    try {
        for (qsizetype position = 0; position < singleRun.tasks.size(); ++position) {
            co_await downloadTask(singleRun, position);
            if (m_isClosing)
                co_return;
        }
        endRun(DownloadUIStatus::done(singleRun.folder));
        downloadProgress = 1.0;
        sendCompleteNotification(singleRun.title, singleRun.tasks.size());
    } catch (const DescribedError &error) {
        if (!m_isClosing)
            endRun(DownloadUIStatus::failed(error.errorDescription()));
    }
}

QCoro::Task<> AppState::downloadTask(SingleRun singleRun, qsizetype position)
{
    const DownloadTask task = singleRun.tasks[position];
    currentDownloadIndex = position + 1;
    currentDownloadTitle = task.title;
    setLastReport(Report::none);
    downloadStatus = DownloadUIStatus::downloading();
    downloadProgress = 0;
    const QStringList arguments = downloadArguments({.cookiesBrowser = cookiesBrowser,
                                                     .speedLimit = speedLimit,
                                                     .quality = singleRun.quality,
                                                     .folder = singleRun.folder,
                                                     .address = task.address});
    const ProgressHandler onProgress = [this](double progress, const QString &speed,
                                              const QString &eta) {
        takeProgress(progress, speed, eta);
    };
    const ProcessingHandler onProcessing = [this] { takeProcessing(); };
    const QString savedPath = co_await requestDownload(arguments, onProgress, onProcessing);
    if (!m_isClosing)
        addToHistory(historyRecord(task, singleRun.quality, savedPath));
}

void AppState::resetDownload()
{
    downloadStatus = DownloadUIStatus::idle();
    downloadProgress = 0;
    downloadSpeed = QString();
    downloadETA = QString();
    isDownloading = false;
    unsetPause();
    currentDownloadTitle = QString();
    currentDownloadIndex = 0;
    totalDownloadCount = 0;
}

void AppState::takeProgress(double progress, const QString &speed, const QString &eta)
{
    downloadProgress = progress;
    downloadSpeed = speed;
    downloadETA = eta;
    setLastReport(Report::progress);
}

void AppState::takeProcessing()
{
    setLastReport(Report::processing);
    downloadStatus = DownloadUIStatus::processing();
}

DownloadUIStatus AppState::displayedDownloadStatus() const
{
    const bool isProgressing = m_lastReport == Report::progress
        && downloadStatus().kind() == DownloadUIStatus::Case::processing;
    return isProgressing ? DownloadUIStatus::downloading() : downloadStatus;
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
