// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ChildProcesses.h"

#include <chrono>

/// A run of a program that cannot be trusted with time and memory.
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

/// A short explanation of a failed run: why it could not be launched, or the last line
/// that it wrote to standard error; may be empty.
QString wordsOf(const BoundedRun &run);
