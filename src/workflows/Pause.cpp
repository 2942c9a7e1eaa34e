// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include <csignal>

void AppState::togglePause()
{
    const auto active = service.activeProcess();
    if (!isPaused) {
        if (active && active->isRunning()) {
            active->send(SIGSTOP);
            m_stopped.append(active);
        }
        isPaused = true;
        return;
    }
    if (active)
        active->send(SIGCONT);
    continueStopped();
    isPaused = false;
}

void AppState::continueStopped()
{
    // A run that another one has pushed out of the slot would stay stopped.
    for (const auto &process : std::as_const(m_stopped))
        process->send(SIGCONT);
    m_stopped.clear();
}
