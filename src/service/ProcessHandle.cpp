// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProcessHandle.h"

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

ProcessHandle::~ProcessHandle()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void ProcessHandle::bind(qint64 processIdentifier)
{
    m_processIdentifier = processIdentifier;
    m_descriptor = static_cast<int>(syscall(SYS_pidfd_open, processIdentifier, 0));
}

bool ProcessHandle::isRunning() const
{
    // The descriptor becomes readable when the process ends.
    pollfd process{.fd = m_descriptor, .events = POLLIN, .revents = 0};
    return process.fd >= 0 && poll(&process, 1, 0) == 0;
}

void ProcessHandle::send(int signal) const
{
    if (m_descriptor >= 0)
        syscall(SYS_pidfd_send_signal, m_descriptor.load(), signal, nullptr, 0);
}
