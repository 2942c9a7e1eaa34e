// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueueControlsPresenter.h"

#include "ShownText.h"

using namespace Qt::StringLiterals;

QueueControlsPresenter::QueueControlsPresenter(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::isQueueDownloadingChanged, &AppState::isPausedChanged,
          &AppState::currentDownloadIndexChanged, &AppState::totalDownloadCountChanged,
          &AppState::currentDownloadTitleChanged})
        connect(&state, signal, this, &QueueControlsPresenter::changed);
}

QString QueueControlsPresenter::pauseIcon() const
{
    return isPaused() ? u"play.fill"_s : u"pause.fill"_s;
}

QString QueueControlsPresenter::pauseHelp() const
{
    return isPaused() ? u"Resume queue"_s : u"Pause queue"_s;
}

QString QueueControlsPresenter::position() const
{
    return u"%1 / %2"_s.arg(state().currentDownloadIndex()).arg(state().totalDownloadCount());
}

QString QueueControlsPresenter::title() const
{
    return shownLine(state().currentDownloadTitle());
}

void QueueControlsPresenter::start()
{
    state().startQueueDownload();
}

void QueueControlsPresenter::togglePause()
{
    state().togglePause();
}

void QueueControlsPresenter::clear()
{
    state().clearQueue();
}
