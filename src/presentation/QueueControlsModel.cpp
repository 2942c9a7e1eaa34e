// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueueControlsModel.h"

#include "ShownText.h"

QueueControlsModel::QueueControlsModel(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::isQueueDownloadingChanged, &AppState::isPausedChanged,
          &AppState::currentDownloadIndexChanged, &AppState::totalDownloadCountChanged,
          &AppState::currentDownloadTitleChanged})
        connect(&state, signal, this, &QueueControlsModel::changed);
}

QString QueueControlsModel::pauseIcon() const
{
    return isPaused() ? QStringLiteral("play.fill") : QStringLiteral("pause.fill");
}

QString QueueControlsModel::pauseHelp() const
{
    return isPaused() ? QStringLiteral("Resume queue") : QStringLiteral("Pause queue");
}

QString QueueControlsModel::position() const
{
    return QStringLiteral("%1 / %2")
        .arg(state().currentDownloadIndex())
        .arg(state().totalDownloadCount());
}

QString QueueControlsModel::title() const
{
    return shownLine(state().currentDownloadTitle);
}

void QueueControlsModel::start()
{
    state().startQueueDownload();
}

void QueueControlsModel::togglePause()
{
    state().togglePause();
}

void QueueControlsModel::clear()
{
    state().clearQueue();
}
