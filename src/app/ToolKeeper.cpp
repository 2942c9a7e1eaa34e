// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolKeeper.h"

#include "AgeSuspicion.h"
#include "AppState.h"
#include "Preferences.h"
#include "ToolFolder.h"

#include <QDateTime>
#include <QThreadPool>

using namespace Qt::StringLiterals;

namespace {

const QString notNowKey = u"quillon.toolNotNow"_s;
constexpr std::chrono::hours lookInterval{24}; // the tool gets older while the window stays open

} // namespace

ToolKeeper::Parts ToolKeeper::Parts::standard()
{
    return {.places = ToolPlaces::standard(), .source = ReleaseSource::official(), .today = [] {
                return QDateTime::currentDateTimeUtc().date();
            }};
}

ToolKeeper::ToolKeeper(AppState &state, Preferences &preferences, Parts parts)
    : m_state(state)
    , m_preferences(preferences)
    , m_parts(std::move(parts))
    , m_retry(state)
    , m_mailbox(std::make_shared<Mailbox>())
    , m_delivery(m_mailbox->open())
{
    connect(&state, &AppState::operationStarted, this, &ToolKeeper::look);
    connect(&state, &AppState::operationFailed, this,
            [this](const QString &description, bool wasLaunched) {
                // The tool's file may be unchanged when the Python that runs it is not.
                if (m_judge
                    && (!wasLaunched || description.contains(u"python", Qt::CaseInsensitive)))
                    m_judge->lookAgain();
                suspectAge(description);
            });
    connect(&state.avPlayer, &MediaPlayer::failed, this, &ToolKeeper::suspectAge);
    connect(&state, &AppState::showSettingsChanged, this, &ToolKeeper::look);
    // What can be repeated changes with these.
    for (const auto signal :
         {&AppState::modeChanged, &AppState::isFetchingChanged, &AppState::isBrowseSearchingChanged,
          &AppState::singleURLChanged, &AppState::fetchErrorChanged,
          &AppState::browseSearchQueryChanged, &AppState::browseSearchErrorChanged,
          &AppState::nowPlayingChanged, &AppState::playerErrorChanged})
        connect(&state, signal, this, &ToolKeeper::changed);
    // The new tool is working, so its news is old.
    for (const auto signal : {&AppState::isFetchingChanged, &AppState::isBrowseSearchingChanged,
                              &AppState::isLoadingStreamChanged})
        connect(&state, signal, this, &ToolKeeper::closeNewsOfUpdate);
    m_daily.setTimerType(Qt::VeryCoarseTimer);
    m_daily.setInterval(lookInterval);
    connect(&m_daily, &QTimer::timeout, this, [this] { m_judge->lookAgain(); });
}

ToolKeeper::~ToolKeeper()
{
    m_update.reset();
    m_judge.reset();
    m_mailbox->close();
}

void ToolKeeper::begin()
{
    m_judge = std::make_unique<ToolJudge>(m_parts.places,
                                          [this, mailbox = m_mailbox](const ToolReport &report) {
                                              mailbox->post([this, report] { showReport(report); });
                                          });
    m_daily.start();
    look();
    QThreadPool::globalInstance()->start(
        [path = m_parts.places.ownPath] { ToolFolder::clearLeftovers(path); });
}

ToolStatus ToolKeeper::status() const
{
    return m_report ? statusOf(*m_report, today()) : ToolStatus::unknown;
}

bool ToolKeeper::canUpdate() const
{
    return m_report && canBeRenewed(*m_report, status()) && m_phase != UpdatePhase::running;
}

bool ToolKeeper::isComplaintDue() const
{
    return m_report && isUseless(status())
        && m_preferences.string(notNowKey) != std::optional(nameOf(*m_report));
}

void ToolKeeper::notNow()
{
    if (m_report)
        m_preferences.setString(notNowKey, nameOf(*m_report));
    m_isHintDue = false;
    closeUpdate();
}

void ToolKeeper::update()
{
    if (m_phase == UpdatePhase::running)
        return;
    m_progress = {};
    m_update = std::make_unique<ToolUpdate>(
        m_parts.source, m_parts.places, m_report ? m_report->version : ToolVersion(),
        ToolUpdate::Handlers{.onProgress =
                                 [this, mailbox = m_mailbox](const UpdateProgress &progress) {
                                     mailbox->post([this, progress] {
                                         m_progress = progress;
                                         Q_EMIT changed();
                                     });
                                 },
                             .onEnd =
                                 [this, mailbox = m_mailbox](const UpdateOutcome &outcome) {
                                     mailbox->post([this, outcome] { showOutcome(outcome); });
                                 }});
    setPhase(UpdatePhase::running);
}

void ToolKeeper::cancelUpdate()
{
    if (m_phase == UpdatePhase::running)
        m_update->cancel();
}

void ToolKeeper::closeUpdate()
{
    if (m_phase != UpdatePhase::running)
        setPhase(UpdatePhase::none);
}

void ToolKeeper::remind()
{
    m_preferences.setString(notNowKey, QString());
    Q_EMIT changed();
}

void ToolKeeper::closeNewsOfUpdate()
{
    const bool isAtWork =
        m_state.isFetching() || m_state.isBrowseSearching() || m_state.isLoadingStream();
    if (isAtWork && m_phase == UpdatePhase::ready)
        closeUpdate();
}

void ToolKeeper::look()
{
    if (m_judge)
        m_judge->look();
}

void ToolKeeper::showReport(const ToolReport &report)
{
    if (!m_report || nameOf(*m_report) != nameOf(report))
        m_isHintDue = false;
    m_report = report;
    const QString refused = m_preferences.string(notNowKey).value_or(QString());
    if (!refused.isEmpty() && refused != nameOf(report)) // it was about another tool
        m_preferences.setString(notNowKey, QString());
    Q_EMIT changed();
}

void ToolKeeper::suspectAge(const QString &failure)
{
    if (status() != ToolStatus::old || !ageMayExplain(failure))
        return;
    const QString name = nameOf(*m_report);
    if (m_preferences.string(notNowKey) == std::optional(name))
        return;
    m_preferences.setString(notNowKey, name);
    m_isHintDue = true;
    Q_EMIT changed();
}

void ToolKeeper::showOutcome(const UpdateOutcome &outcome)
{
    m_update.reset();
    m_outcome = outcome;
    if (outcome.isSuccess()) { // known before the tool is looked at
        m_report.emplace();
        m_report->path = m_parts.places.ownPath;
        m_report->exists = true;
        m_report->version = outcome.version;
        m_isHintDue = false;
    }
    setPhase(outcome.isSuccess()           ? UpdatePhase::ready
                 : outcome.error.isEmpty() ? UpdatePhase::none
                                           : UpdatePhase::failed);
    look();
}

void ToolKeeper::setPhase(UpdatePhase phase)
{
    m_phase = phase;
    Q_EMIT changed();
}
