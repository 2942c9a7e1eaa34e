// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ToolPlace.h"
#include "ToolRelease.h"

#include "ChildProcesses.h"

#include <functional>
#include <memory>

class UpdateRun;

/// The progress of an update.
struct UpdateProgress
{
    enum class Step { downloading, preparing };
    Step step = Step::downloading;
    double part = -1; ///< of the step, from 0 to 1; below 0 while it is unknown
};

/// How an update has ended: with a version, with a sentence for the user, or with neither
/// if it was cancelled.
struct UpdateOutcome
{
    ToolVersion version;
    QString error;

    [[nodiscard]] bool isSuccess() const { return error.isEmpty() && version.isDated(); }
};

/// Installs the latest release of the tool: downloads it, verifies it, makes it start
/// fast, tries it, and only then replaces the old one, atomically. Starts when it is
/// made. Works on its own thread, where the handlers are called.
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
    /// Cancels it if it is unfinished, and leaves nothing behind.
    ~ToolUpdate();

    /// Cancels it soon; its end is reported. Any thread.
    void cancel();

private:
    std::shared_ptr<UpdateRun> m_run; // the thread's own
    ChildProcesses m_processes; // last: its thread ends before the members above are destroyed
};
