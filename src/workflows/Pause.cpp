// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include <csignal>

void AppState::togglePause()
{
    const auto active = service.activeProcess();
    if (!isPaused()) {
        if (active && active->isRunning()) {
            active->send(SIGSTOP);
            m_stopped.append(active);
        }
        isPaused = true;
        return;
    }
    if (active)
        active->send(SIGCONT);
    unsetPause();
}

// Whoever ends the pause: a stopped process would have no button to continue it. It need
// not be in the slot, which another download may have taken.
void AppState::unsetPause()
{
    for (const auto &process : std::as_const(m_stopped))
        process->send(SIGCONT);
    m_stopped.clear();
    isPaused = false;
}
