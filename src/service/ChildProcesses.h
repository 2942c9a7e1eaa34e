// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ChildProcess.h"
#include "Worker.h"

#include <QSet>

#include <functional>
#include <memory>

/// Child processes on a worker thread of their own, which also reads their output. None
/// of them outlives this object.
class ChildProcesses
{
    Q_DISABLE_COPY_MOVE(ChildProcesses)

public:
    ChildProcesses() = default;
    /// Ends every process that still runs.
    ~ChildProcesses();

    /// Runs a task on the worker thread. Any thread.
    void post(Mailbox::Message task);

    /// Starts a process, whose handlers are called on the worker thread. On the worker
    /// thread; the process is valid until its end has been handled.
    ChildProcess *launch(const ChildProcess::Command &command,
                         const std::shared_ptr<ProcessHandle> &handle,
                         const ChildProcess::OutputHandler &onOutput,
                         const ChildProcess::EndHandler &onEnd);

    /// Ends every process started by a task posted so far, including stopped ones, with
    /// all of their children; returns when they are gone and their ends have been
    /// handled. Not on the worker thread.
    void endAll();

private:
    void signalIfIdle();

    // Belongs to the worker thread, which also destroys it.
    struct Children
    {
        QSet<ChildProcess *> running;
        QList<std::function<void()>> idleHandlers;
    };
    std::shared_ptr<Children> m_children = std::make_shared<Children>();

    Worker m_worker; // last: its thread ends before the members above are destroyed
};
