// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Mailbox.h"

#include <thread>

class QEventLoop;

/// A thread with an event loop that runs posted tasks in order. Destroying it waits for
/// the tasks posted before.
class Worker
{
    Q_DISABLE_COPY_MOVE(Worker)

public:
    Worker();
    ~Worker();

    /// Any thread.
    void post(Mailbox::Message task);

private:
    void run();

    Mailbox m_mailbox;
    QEventLoop *m_loop = nullptr; // the worker thread's
    // Not a QThread, whose end thread checkers cannot follow.
    std::thread m_thread;
};
