// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ChildProcesses.h"

#include <chrono>

/// A run of a program that is not to be trusted with our time and memory.
struct BoundedRun
{
    ProcessEnding ending;
    QByteArray output;
    bool hasRunOutOfTime = false;
    bool hasSaidTooMuch = false;

    [[nodiscard]] bool isSuccess() const
    {
        return ending.isSuccess() && !hasRunOutOfTime && !hasSaidTooMuch;
    }
};

/// Runs the program, which is ended when the time is up or when it has printed more
/// than 64 KiB. On the worker thread, where `onEnd` is called once; `onOutput`, if there
/// is one, gets what is printed as it comes. The process is valid until its end has been
/// handled.
ChildProcess *runBounded(ChildProcesses &processes, ChildProcess::Command command,
                         std::chrono::milliseconds time,
                         const std::function<void(const BoundedRun &)> &onEnd,
                         const ChildProcess::OutputHandler &onOutput = {});

/// The last line that is not blank, short enough to be shown.
QString lastLine(const QByteArray &text);
