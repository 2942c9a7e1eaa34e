// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Mailbox.h"

#include <QThread>

/// A thread with an event loop that runs the tasks posted to it, in order.
/// Destroying it waits for the tasks posted before.
class Worker
{
    Q_DISABLE_COPY_MOVE(Worker)

public:
    Worker();
    ~Worker();

    /// Any thread.
    void post(Mailbox::Message task);

private:
    Mailbox m_mailbox;
    std::unique_ptr<QThread> m_thread;
};
