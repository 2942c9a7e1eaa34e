// SPDX-License-Identifier: GPL-3.0-or-later
#include "Worker.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

#include <pthread.h>

Worker::Worker()
    : m_thread([this] { run(); })
{
    pthread_setname_np(m_thread.native_handle(), "quillon-worker");
}

Worker::~Worker()
{
    m_mailbox.post([this] { m_loop->quit(); });
    m_thread.join();
    m_mailbox.close(); // passes its lock on, so that checkers see what the thread did last
}

void Worker::post(Mailbox::Message task)
{
    m_mailbox.post(std::move(task));
}

void Worker::run()
{
    QEventLoop loop;
    m_loop = &loop;
    const auto delivery = m_mailbox.open();
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_mailbox.close();
}
