// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadSectionPresenter.h"

#include "DownloadLabel.h"
#include "Percent.h"
#include "ShownText.h"

using namespace Qt::StringLiterals;

DownloadSectionPresenter::DownloadSectionPresenter(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::singleInfoChanged, &AppState::selectedPlaylistItemsChanged,
          &AppState::isDownloadingChanged, &AppState::isPausedChanged,
          &AppState::displayedDownloadStatusChanged, &AppState::currentDownloadTitleChanged,
          &AppState::currentDownloadIndexChanged, &AppState::totalDownloadCountChanged})
        connect(&state, signal, this, &DownloadSectionPresenter::changed);
    for (const auto signal : {&AppState::downloadProgressChanged, &AppState::downloadSpeedChanged,
                              &AppState::downloadETAChanged})
        connect(&state, signal, this, &DownloadSectionPresenter::progressChanged);
}

QString DownloadSectionPresenter::buttonLabel() const
{
    const auto &info = state().singleInfo();
    if (!info || !info->isPlaylist)
        return u"Download"_s;
    return downloadLabel(state().selectedPlaylistItems().size());
}

bool DownloadSectionPresenter::isDisabled() const
{
    const auto &info = state().singleInfo();
    return state().isDownloading() || !info
        || (info->isPlaylist && state().selectedPlaylistItems().isEmpty());
}

QString DownloadSectionPresenter::pauseIcon() const
{
    return isPaused() ? u"play.fill"_s : u"pause.fill"_s;
}

QString DownloadSectionPresenter::pauseHelp() const
{
    return isPaused() ? u"Resume download"_s : u"Pause download"_s;
}

bool DownloadSectionPresenter::isDone() const
{
    return kindOf(state().downloadStatus()) == StatusKind::Done;
}

QString DownloadSectionPresenter::failure() const
{
    const bool hasFailed = kindOf(state().downloadStatus()) == StatusKind::Failed;
    return hasFailed && state().singleFailure() ? shownText(failureText(*state().singleFailure()))
                                                : QString();
}

StatusLook DownloadSectionPresenter::chip() const
{
    return chipLook(state().displayedDownloadStatus(), isPaused());
}

bool DownloadSectionPresenter::showsRunLine() const
{
    return state().totalDownloadCount() > 1;
}

QString DownloadSectionPresenter::runLineTitle() const
{
    return shownLine(state().currentDownloadTitle());
}

QString DownloadSectionPresenter::runLineCount() const
{
    return u"%1 / %2"_s.arg(state().currentDownloadIndex()).arg(state().totalDownloadCount());
}

QString DownloadSectionPresenter::runLine() const
{
    return showsRunLine() ? u"%1 · %2"_s.arg(runLineCount(), runLineTitle()) : runLineTitle();
}

bool DownloadSectionPresenter::showsProgress() const
{
    return kindOf(state().displayedDownloadStatus()) == StatusKind::Downloading;
}

bool DownloadSectionPresenter::showsProcessing() const
{
    return kindOf(state().displayedDownloadStatus()) == StatusKind::Processing;
}

QString DownloadSectionPresenter::percent() const
{
    return percentText(state().downloadProgress());
}

QString DownloadSectionPresenter::speed() const
{
    return shownLine(state().downloadSpeed());
}

QString DownloadSectionPresenter::remaining() const
{
    const QString &eta = state().downloadETA();
    return eta.isEmpty() || eta == u"--" ? QString() : shownLine(u"ETA "_s + eta);
}

QString DownloadSectionPresenter::description() const
{
    QStringList facts{speed(), remaining()};
    facts.removeAll(QString());
    return facts.join(u", "_s);
}

void DownloadSectionPresenter::download()
{
    if (isDone())
        state().resetDownload();
    state().startSingleDownload();
}

void DownloadSectionPresenter::togglePause()
{
    state().togglePause();
}

void DownloadSectionPresenter::stop()
{
    state().stopSingleDownload();
}

void DownloadSectionPresenter::reveal()
{
    state().revealInFinder(pathOf(state().downloadStatus()));
}
