// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "Closing.h"
#include "Preferences.h"

AppStateParts AppStateParts::standard()
{
    return {.service = &YTDLPService::shared(),
            .preferences = &Preferences::standard(),
            .platform = PlatformServices::desktop()};
}

AppState::AppState()
    : AppState(AppStateParts::standard())
{
}

AppState::AppState(AppStateParts parts)
    : avPlayer(parts.platform.playerEngine)
    , service(*parts.service)
    , m_preferences(*parts.preferences)
    , m_pending(*parts.preferences)
    , m_platform(std::move(parts.platform))
    , m_mailbox(std::make_shared<Mailbox>())
    , m_delivery(m_mailbox->open())
    , m_streamAhead(m_mailbox, {},
                    [this](const QString &videoURL, const Completion<QUrl> &completion) {
                        service.getStreamURL(videoURL, completion);
                    })
{
    connect(this, &AppState::downloadStatusChanged, this,
            &AppState::displayedDownloadStatusChanged);
    loadSettings();
    loadHistory();
    setupAutoPlayNext();
}

AppState::~AppState()
{
    m_isClosing = true;
    service.endProcesses();
    m_mailbox->deliverUntil([this] { return m_runningTasks == 0; });
    m_mailbox->close();
    m_preferences.flush();
}

void AppState::spawn(std::function<QCoro::Task<>()> start)
{
    postUnlessClosing([this, start = std::move(start)] { lookAfter(start()); });
}

void AppState::postUnlessClosing(std::function<void()> action)
{
    // The mailbox of a state that is gone is closed and drops this.
    m_mailbox->post([this, action = std::move(action)] {
        if (!m_isClosing)
            action();
    });
}

QCoro::Task<> AppState::lookAfter(QCoro::Task<> task)
{
    ++m_runningTasks;
    try {
        co_await task;
    } catch (const Closing & /*everything*/) {
    } catch (const std::exception &error) {
        qCritical("A task ended with an error that nobody expected: %s", error.what());
    }
    --m_runningTasks;
}
