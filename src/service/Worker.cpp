// SPDX-License-Identifier: GPL-3.0-or-later
#include "Worker.h"

namespace {

class EventLoopThread : public QThread
{
public:
    explicit EventLoopThread(Mailbox &mailbox)
        : m_mailbox(mailbox)
    {
    }

protected:
    void run() override
    {
        m_mailbox.open();
        exec();
        m_mailbox.close();
    }

private:
    Mailbox &m_mailbox;
};

} // namespace

Worker::Worker()
    : m_thread(std::make_unique<EventLoopThread>(m_mailbox))
{
    m_thread->setObjectName(QStringLiteral("quillon-worker"));
    m_thread->start();
}

Worker::~Worker()
{
    m_mailbox.post([] { QThread::currentThread()->quit(); });
    m_thread->wait();
}

void Worker::post(Mailbox::Message task)
{
    m_mailbox.post(std::move(task));
}
