// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Retry.h"
#include "ToolJudge.h"
#include "ToolUpdate.h"

#include <QDate>
#include <QTimer>

#include <memory>
#include <optional>

class AppState;
class Mailbox;
class Preferences;
class QSocketNotifier;

/// Knows the tool's condition, and updates it when the user wants that. Watches the
/// state's operations, which know nothing of it. Main thread.
class ToolKeeper : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        ToolPlaces places;
        ReleaseSource source;
        std::function<QDate()> today;

        /// The program's own.
        static Parts standard();
    };
    enum class UpdatePhase { none, running, ready, failed };

    /// The state and the preferences outlive it.
    ToolKeeper(AppState &state, Preferences &preferences, Parts parts);
    ~ToolKeeper() override;

    /// From here on the tool is watched. None of that delays anything, but a start is
    /// quicker without it.
    void begin();

    /// The tool as last judged; nothing before the first judgement.
    [[nodiscard]] const std::optional<ToolReport> &report() const { return m_report; }
    [[nodiscard]] QDate today() const { return m_parts.today(); }
    /// `unknown` before the tool has been judged.
    [[nodiscard]] ToolStatus status() const;
    [[nodiscard]] bool canUpdate() const;

    /// Whether to tell the user that the tool is unusable.
    [[nodiscard]] bool isComplaintDue() const;
    /// Whether to tell the user that the tool is old: something has failed for which this
    /// may be the reason. Once per version.
    [[nodiscard]] bool isHintDue() const { return m_isHintDue && status() == ToolStatus::old; }
    /// No more about this tool until it changes.
    void notNow();
    /// Takes notNow() back.
    void remind();

    [[nodiscard]] UpdatePhase updatePhase() const { return m_phase; }
    [[nodiscard]] const UpdateProgress &updateProgress() const { return m_progress; }
    /// How the update that has ended turned out.
    [[nodiscard]] const UpdateOutcome &updateOutcome() const { return m_outcome; }
    /// Installs the latest release; does nothing while that is in progress.
    void update();
    void cancelUpdate();
    /// Forgets how the last update ended.
    void closeUpdate();

    [[nodiscard]] Retry &retry() { return m_retry; }

Q_SIGNALS:
    void changed();

private:
    void look();
    void showReport(const ToolReport &report);
    void suspectAge(const QString &failure);
    void showOutcome(const UpdateOutcome &outcome);
    void setPhase(UpdatePhase phase);
    void closeNewsOfUpdate();

    AppState &m_state;
    Preferences &m_preferences;
    const Parts m_parts;
    Retry m_retry;
    std::optional<ToolReport> m_report;
    bool m_isHintDue = false;
    UpdatePhase m_phase = UpdatePhase::none;
    UpdateProgress m_progress;
    UpdateOutcome m_outcome;
    QTimer m_daily;

    const std::shared_ptr<Mailbox> m_mailbox; // to the main thread
    const std::unique_ptr<QSocketNotifier> m_delivery;
    std::unique_ptr<ToolJudge> m_judge;
    std::unique_ptr<ToolUpdate> m_update;
};
