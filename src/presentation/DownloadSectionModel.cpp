// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadSectionModel.h"

#include "DownloadLabel.h"
#include "Percent.h"
#include "ShownText.h"
#include "StatusChipText.h"

DownloadSectionModel::DownloadSectionModel(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::singleInfoChanged, &AppState::selectedPlaylistItemsChanged,
          &AppState::isDownloadingChanged, &AppState::isPausedChanged,
          &AppState::displayedDownloadStatusChanged, &AppState::currentDownloadTitleChanged,
          &AppState::currentDownloadIndexChanged, &AppState::totalDownloadCountChanged})
        connect(&state, signal, this, &DownloadSectionModel::changed);
    for (const auto signal : {&AppState::downloadProgressChanged, &AppState::downloadSpeedChanged,
                              &AppState::downloadETAChanged})
        connect(&state, signal, this, &DownloadSectionModel::progressChanged);
}

QString DownloadSectionModel::buttonLabel() const
{
    const auto &info = state().singleInfo();
    if (!info || !info->isPlaylist)
        return QStringLiteral("Download");
    return downloadLabel(state().selectedPlaylistItems().size());
}

bool DownloadSectionModel::isDisabled() const
{
    const auto &info = state().singleInfo();
    return state().isDownloading || !info
        || (info->isPlaylist && state().selectedPlaylistItems().isEmpty());
}

QString DownloadSectionModel::pauseIcon() const
{
    return isPaused() ? QStringLiteral("play.fill") : QStringLiteral("pause.fill");
}

QString DownloadSectionModel::pauseHelp() const
{
    return isPaused() ? QStringLiteral("Resume download") : QStringLiteral("Pause download");
}

bool DownloadSectionModel::isDone() const
{
    return state().downloadStatus().kind() == DownloadUIStatus::Case::done;
}

QString DownloadSectionModel::chipIcon() const
{
    return statusChipText(state().displayedDownloadStatus(), isPaused()).icon;
}

QString DownloadSectionModel::chipText() const
{
    return statusChipText(state().displayedDownloadStatus(), isPaused()).text;
}

QString DownloadSectionModel::chipTone() const
{
    return statusChipText(state().displayedDownloadStatus(), isPaused()).tone;
}

bool DownloadSectionModel::showsRunLine() const
{
    return state().totalDownloadCount > 1;
}

QString DownloadSectionModel::runLineTitle() const
{
    return shownLine(state().currentDownloadTitle);
}

QString DownloadSectionModel::runLineCount() const
{
    return QStringLiteral("%1 / %2")
        .arg(state().currentDownloadIndex())
        .arg(state().totalDownloadCount());
}

bool DownloadSectionModel::showsProgress() const
{
    return state().displayedDownloadStatus().kind() == DownloadUIStatus::Case::downloading;
}

bool DownloadSectionModel::showsProcessing() const
{
    return state().displayedDownloadStatus().kind() == DownloadUIStatus::Case::processing;
}

QString DownloadSectionModel::percent() const
{
    return percentText(state().downloadProgress);
}

QString DownloadSectionModel::speed() const
{
    return shownLine(state().downloadSpeed);
}

QString DownloadSectionModel::remaining() const
{
    const QString &eta = state().downloadETA();
    return eta.isEmpty() || eta == u"--" ? QString() : shownLine(QStringLiteral("ETA ") + eta);
}

QString DownloadSectionModel::description() const
{
    QStringList facts{speed(), remaining()};
    facts.removeAll(QString());
    return facts.join(QStringLiteral(", "));
}

void DownloadSectionModel::download()
{
    if (isDone())
        state().resetDownload();
    state().startSingleDownload();
}

void DownloadSectionModel::togglePause()
{
    state().togglePause();
}

void DownloadSectionModel::showInFinder()
{
    state().revealInFinder(state().downloadStatus().path());
}
