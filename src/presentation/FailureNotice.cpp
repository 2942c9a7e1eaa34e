// SPDX-License-Identifier: GPL-3.0-or-later
#include "FailureNotice.h"

#include "AppState.h"
#include "Retry.h"

using namespace Qt::StringLiterals;

using Remedy = FailureAdvice::Remedy;

FailureNotice::FailureNotice(AppState &state, Retry &retry, std::chrono::milliseconds pause)
    : m_state(state)
    , m_retry(retry)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    connect(&m_pause, &QTimer::timeout, this, &FailureNotice::changed);
    connect(&state, &AppState::operationStarted, this, &FailureNotice::forget);
    connect(&state, &AppState::operationFailed, this, &FailureNotice::handleFailure);
    // What can be tried again changes with these.
    for (const auto signal :
         {&AppState::modeChanged, &AppState::isFetchingChanged, &AppState::fetchErrorChanged,
          &AppState::singleURLChanged, &AppState::isBrowseSearchingChanged,
          &AppState::browseSearchErrorChanged, &AppState::playerErrorChanged,
          &AppState::isDownloadingChanged, &AppState::downloadStatusChanged})
        connect(&state, signal, this, &FailureNotice::changed);
}

Notice FailureNotice::notice()
{
    if (!m_advice)
        return {};
    return {.kind = u"failure: "_s + m_advice->sentence,
            .title = (m_advice->sentence + u' ' + m_advice->command).trimmed(),
            .text = m_advice->sentence,
            .symbol = u"exclamationmark.triangle.fill"_s,
            .tone = u"orange"_s,
            .command = m_advice->command,
            .actionText = actionText(),
            .setting = setting(),
            .dismissText = u"Close"_s,
            .act = [this] { act(); },
            .dismiss = [this] { forget(); }};
}

void FailureNotice::handleFailure(const QString &failure)
{
    m_advice = adviceFor(failure, m_state.cookiesBrowser());
    if (m_advice && m_advice->remedy == Remedy::tryAgainLater)
        m_pause.start();
    Q_EMIT changed();
}

void FailureNotice::forget()
{
    if (!m_advice)
        return;
    m_advice.reset();
    m_pause.stop();
    Q_EMIT changed();
}

void FailureNotice::act()
{
    const Remedy remedy = m_advice->remedy;
    forget();
    if (remedy == Remedy::chooseCookies || remedy == Remedy::openSettings) {
        m_state.showSettings = true;
    } else if (hasFailedDownload()) {
        m_state.startSingleDownload();
    } else {
        m_retry.repeat();
    }
}

QString FailureNotice::actionText() const
{
    switch (m_advice->remedy) {
    case Remedy::chooseCookies:
        return u"Choose browser cookies"_s;
    case Remedy::openSettings:
        return u"Open settings"_s;
    case Remedy::tryAgain:
    case Remedy::tryAgainLater:
        return (m_retry.isPossible() || hasFailedDownload()) && !m_pause.isActive() ? u"Try again"_s
                                                                                    : QString();
    case Remedy::runCommand:
        return {};
    }
    Q_UNREACHABLE();
}

QString FailureNotice::setting() const
{
    switch (m_advice->remedy) {
    case Remedy::chooseCookies:
        return u"cookiesBrowser"_s;
    case Remedy::openSettings:
        return u"downloadDir"_s;
    default:
        return {};
    }
}

bool FailureNotice::hasFailedDownload() const
{
    return m_state.mode() == AppMode::single && m_state.singleInfo() && !m_state.isDownloading()
        && kindOf(m_state.downloadStatus()) == StatusKind::Failed;
}
