// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ChildProcesses.h"

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

/// Ends a child process when a stop is requested, on any thread. Used on the worker thread.
class EndOnStop : public std::enable_shared_from_this<EndOnStop>
{
public:
    /// The process runs on the worker thread of `processes`. Does nothing after disarm().
    void arm(ChildProcess *child, const std::stop_token &stop, ChildProcesses &processes)
    {
        if (m_hasEnded)
            return; // it could not even be launched
        m_child = child;
        m_callback.emplace(stop, [self = shared_from_this(), &processes] {
            processes.post([self] { self->end(); });
        });
    }

    /// To be called when the process has ended.
    void disarm()
    {
        m_hasEnded = true;
        m_child = nullptr;
        m_callback.reset();
    }

private:
    void end()
    {
        if (m_child)
            m_child->end();
    }

    bool m_hasEnded = false;
    ChildProcess *m_child = nullptr;
    std::optional<std::stop_callback<std::function<void()>>> m_callback;
};
