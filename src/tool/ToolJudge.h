// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BoundedRun.h"
#include "ToolPlace.h"

#include <chrono>

/// Finds out which tool would run, its version, and whether it starts. Works on its own
/// thread, so that neither a slow disk nor a slow tool delays anything.
class ToolJudge
{
    Q_DISABLE_COPY_MOVE(ToolJudge)

public:
    using Handler = std::function<void(const ToolReport &)>;

    /// How long the tool may take to tell its version.
    static constexpr std::chrono::seconds patience{10};

    /// The handler is called on the judge's thread with every new judgement.
    ToolJudge(ToolPlaces places, Handler onReport, std::chrono::milliseconds time = patience);
    /// Ends a running check, about which nothing is reported.
    ~ToolJudge();

    /// Judges the tool if it has changed since last time, by its path, size and times, or
    /// if another obstacle to an update has appeared.
    void look();
    /// Judges it unconditionally.
    void lookAgain();

private:
    // On the judge's thread:
    void judge(bool anew);
    void ask(ToolReport report);
    void settle(const ToolReport &report);

    const ToolPlaces m_places;
    const Handler m_onReport;
    const std::chrono::milliseconds m_patience;

    // The judge's thread's:
    QByteArray m_fingerprint;
    ToolReport m_located; // as last looked at
    bool m_isAsking = false;
    bool m_isWanted = false; // a look requested while the tool was being asked
    bool m_isWantedAnew = false;
    bool m_isClosing = false;

    ChildProcesses m_processes; // last: its thread ends before the rest goes
};
