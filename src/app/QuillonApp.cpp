// SPDX-License-Identifier: GPL-3.0-or-later
#include "QuillonApp.h"

#include "QueueRun.h"
#include "URLList.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

AppStateParts authorized(AppStateParts parts)
{
    parts.platform.notifier->requestPermission();
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
    return m_state.singleInfo() && !m_state.isDownloading();
}

bool QuillonApp::canPause() const
{
    return m_state.isDownloading();
}

QString QuillonApp::pauseTitle() const
{
    return m_state.isPaused() ? u"Resume Download"_s : u"Pause Download"_s;
}

QString QuillonApp::versionText()
{
    return u"Version " QUILLON_VERSION ""_s;
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

void QuillonApp::open(const QStringList &urls)
{
    const QStringList found = webURLsIn(urls.join(u'\n'));
    if (found.isEmpty())
        return;
    if (found.size() == 1 && !isBusy()) {
        m_state.mode = AppMode::single;
        m_state.singleURL = found.first();
        m_state.fetchAsPlaylist = false;
        m_state.fetchSingleInfo();
    } else {
        m_state.mode = AppMode::multi;
        m_state.addURLsToQueue(found);
    }
}

bool QuillonApp::isBusy() const
{
    const auto browse = m_state.browseDownloadStatuses();
    return m_state.isFetching() || m_state.isDownloading() || m_state.isQueueDownloading()
        || !active(m_state.queue()).isEmpty()
        || std::any_of(browse.cbegin(), browse.cend(), isActive);
}
