// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <atomic>

/// A child process as others may see it: whether it runs, and a way to signal it. Held
/// through a process descriptor, so that a signal reaches this process or none, even if
/// it has just ended and its number is in use again. Safe from any thread.
class ProcessHandle
{
    Q_DISABLE_COPY_MOVE(ProcessHandle)

public:
    ProcessHandle() = default;
    ~ProcessHandle();

    /// Binds the handle to a child that has not been waited for yet. Only once.
    void bind(qint64 processIdentifier);

    [[nodiscard]] bool isRunning() const;

    /// 0 while the process has not been started.
    [[nodiscard]] qint64 processIdentifier() const { return m_processIdentifier; }

    /// Sends a signal to the process alone; nothing happens once it has ended.
    void send(int signal) const;

private:
    std::atomic<int> m_descriptor = -1;
    std::atomic<qint64> m_processIdentifier = 0;
};
