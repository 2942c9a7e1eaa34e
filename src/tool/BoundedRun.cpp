// SPDX-License-Identifier: GPL-3.0-or-later
#include "BoundedRun.h"

#include "ToolText.h"

#include <algorithm>

namespace {

constexpr qsizetype mostOutput = qsizetype{64} * 1024;
constexpr qsizetype longestLine = 160;

} // namespace

ChildProcess *runBounded(ChildProcesses &processes, ChildProcess::Command command,
                         std::chrono::milliseconds time,
                         const std::function<void(const BoundedRun &)> &onEnd,
                         const ChildProcess::OutputHandler &onOutput)
{
    struct Running
    {
        BoundedRun run;
        ChildProcess *child = nullptr; // while it can be ended
        bool hasEnded = false;
    };
    const auto running = std::make_shared<Running>();
    command.mostStandardError = mostOutput;
    ChildProcess *const child = processes.launch(
        command, std::make_shared<ProcessHandle>(),
        [=](const QByteArray &bytes) {
            running->run.output += bytes.left(mostOutput - running->run.output.size());
            if (onOutput)
                onOutput(bytes);
            if (running->run.output.size() == mostOutput && running->child) {
                running->run.hasSaidTooMuch = true;
                running->child->end();
            }
        },
        [=](const ProcessEnding &ending) {
            running->child = nullptr;
            running->hasEnded = true;
            running->run.ending = ending;
            onEnd(running->run);
        });
    if (running->hasEnded) // it could not even be launched
        return child;
    running->child = child;
    // The child takes its timer along.
    QTimer::singleShot(time, child, [=] {
        running->run.hasRunOutOfTime = true;
        child->end();
    });
    return child;
}

QString wordsOf(const BoundedRun &run)
{
    if (!run.ending.launchError.isEmpty())
        return run.ending.launchError;
    const QList<QByteArray> lines = run.ending.standardError.trimmed().split('\n');
    return decodedText(lines.last()).simplified().left(longestLine);
}
