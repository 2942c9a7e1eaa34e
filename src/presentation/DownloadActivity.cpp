// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadActivity.h"

#include "AppState.h"
#include "Inhibitor.h"
#include "LauncherEntry.h"

#include <algorithm>

DownloadActivity::DownloadActivity(AppState &state, LauncherEntry &entry, Inhibitor &suspend)
    : m_state(state)
    , m_entry(entry)
    , m_suspend(suspend)
{
    for (const auto signal :
         {&AppState::isDownloadingChanged, &AppState::isQueueDownloadingChanged,
          &AppState::isPausedChanged, &AppState::downloadProgressChanged,
          &AppState::currentDownloadIndexChanged, &AppState::totalDownloadCountChanged,
          &AppState::browseDownloadStatusesChanged})
        connect(&state, signal, this, &DownloadActivity::show);
    connect(&state, &AppState::queueChanged, this, &DownloadActivity::followQueue);
    followQueue();
}

void DownloadActivity::followQueue()
{
    const AppState::Queue &queue = m_state.queue();
    for (const auto &item : queue)
        connect(item.get(), &DownloadItem::statusChanged, this, &DownloadActivity::show,
                Qt::UniqueConnection);
    show();
}

void DownloadActivity::show()
{
    m_entry.setProgress(progress());
    m_suspend.setInhibited(isWorking());
}

bool DownloadActivity::isWorking() const
{
    const bool hasRun = m_state.isDownloading() || m_state.isQueueDownloading();
    if (hasRun && !m_state.isPaused())
        return true;
    const auto &statuses = m_state.browseDownloadStatuses();
    return std::any_of(statuses.begin(), statuses.end(), [](const auto &status) {
        return kindOf(status) == StatusKind::Downloading
            || kindOf(status) == StatusKind::Processing;
    });
}

std::optional<double> DownloadActivity::progress() const
{
    if (!m_state.isDownloading() && !m_state.isQueueDownloading())
        return {};
    const auto count = static_cast<double>(std::max<qint64>(1, m_state.totalDownloadCount()));
    const auto done = static_cast<double>(std::max<qint64>(0, m_state.currentDownloadIndex() - 1));
    return (done + progressOfFile()) / count;
}

double DownloadActivity::progressOfFile() const
{
    if (m_state.isDownloading())
        return m_state.downloadProgress();
    const AppState::Queue &queue = m_state.queue();
    for (const auto &item : queue) {
        const DownloadStatus status = item->status();
        if (const auto *const downloading = std::get_if<Status::Downloading>(&status))
            return downloading->progress;
    }
    return 0;
}
