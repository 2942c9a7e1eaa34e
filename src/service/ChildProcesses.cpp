// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChildProcesses.h"

#include <semaphore>
#include <utility>

ChildProcesses::~ChildProcesses()
{
    endAll();
    m_worker.post([children = std::move(m_children)] { Q_UNUSED(children) });
}

void ChildProcesses::post(Mailbox::Message task)
{
    m_worker.post(std::move(task));
}

ChildProcess *ChildProcesses::launch(const ChildProcess::Command &command,
                                     const std::shared_ptr<ProcessHandle> &handle,
                                     const ChildProcess::OutputHandler &onOutput,
                                     const ChildProcess::EndHandler &onEnd)
{
    const auto self = std::make_shared<ChildProcess *>(nullptr);
    auto *const child = new ChildProcess(command, handle, onOutput,
                                         [this, self, onEnd](const ProcessEnding &ending) {
                                             m_children->running.remove(*self);
                                             onEnd(ending);
                                             signalIfIdle();
                                         });
    *self = child;
    m_children->running.insert(child);
    child->start();
    return child;
}

void ChildProcesses::endAll()
{
    std::binary_semaphore idle(0);
    m_worker.post([this, &idle] {
        m_children->idleHandlers.append([&idle] { idle.release(); });
        for (ChildProcess *const child : std::as_const(m_children->running))
            child->end();
        signalIfIdle();
    });
    idle.acquire();
}

void ChildProcesses::signalIfIdle()
{
    if (!m_children->running.isEmpty())
        return;
    const auto handlers = std::exchange(m_children->idleHandlers, {});
    for (const auto &handler : handlers)
        handler();
}
