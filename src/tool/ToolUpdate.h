// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ToolPlace.h"
#include "ToolRelease.h"

#include "ChildProcesses.h"

#include <functional>
#include <memory>

class UpdateRun;

/// How far an update is.
struct UpdateProgress
{
    enum class Step { downloading, preparing };
    Step step = Step::downloading;
    double part = -1; ///< of the step, from 0 to 1; less than 0 while nobody knows
};

/// How an update has ended: with a version, a sentence for the user, or neither when
/// it was given up.
struct UpdateOutcome
{
    ToolVersion version;
    QString error;

    [[nodiscard]] bool isSuccess() const { return error.isEmpty() && version.isDated(); }
};

/// Puts the latest release of the tool into its place: downloaded, proved to be what was
/// released, made fast, tried, and only then exchanged for the old one, atomically.
/// Starts when it is made. Works on a thread of its own, where the handlers are called.
class ToolUpdate
{
    Q_DISABLE_COPY_MOVE(ToolUpdate)

public:
    struct Handlers
    {
        std::function<void(const UpdateProgress &)> onProgress;
        std::function<void(const UpdateOutcome &)> onEnd; ///< called once
    };

    /// A release older than `present` is refused.
    ToolUpdate(const ReleaseSource &source, const ToolPlaces &places, const ToolVersion &present,
               const Handlers &handlers);
    /// Gives it up if it is not finished, and leaves nothing behind.
    ~ToolUpdate();

    /// Gives it up soon; its end is reported. Any thread.
    void cancel();

private:
    std::shared_ptr<UpdateRun> m_run; // the thread's own
    ChildProcesses m_processes;       // last: its thread ends before the rest goes
};
