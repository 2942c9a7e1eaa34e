// SPDX-License-Identifier: GPL-3.0-or-later
#include "QuillonApp.h"

namespace {

AppStateParts authorized(AppStateParts parts)
{
    parts.platform.notifier->requestAuthorization();
    return parts;
}

} // namespace

QuillonApp::QuillonApp(AppStateParts parts)
    : m_state(authorized(std::move(parts)))
{
    connect(&m_state, &AppState::singleInfoChanged, this, &QuillonApp::commandsChanged);
    connect(&m_state, &AppState::isDownloadingChanged, this, &QuillonApp::commandsChanged);
    connect(&m_state, &AppState::isPausedChanged, this, &QuillonApp::commandsChanged);
}

bool QuillonApp::canStartDownload() const
{
    return m_state.singleInfo() && !m_state.isDownloading;
}

bool QuillonApp::canPause() const
{
    return m_state.isDownloading;
}

QString QuillonApp::pauseTitle() const
{
    return m_state.isPaused ? QStringLiteral("Resume Download") : QStringLiteral("Pause Download");
}

void QuillonApp::fetchInfo()
{
    if (!m_state.singleURL().isEmpty())
        m_state.fetchSingleInfo();
}

void QuillonApp::startDownload()
{
    if (canStartDownload())
        m_state.startSingleDownload();
}

void QuillonApp::togglePause()
{
    if (canPause())
        m_state.togglePause();
}

void QuillonApp::toggleMode()
{
    m_state.mode = m_state.mode() == AppMode::single ? AppMode::multi : AppMode::single;
}
