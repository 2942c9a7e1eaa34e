// SPDX-License-Identifier: GPL-3.0-or-later
#include "Mailbox.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

Mailbox::Mailbox()
    : m_wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (m_wakeUp < 0)
        qFatal("No file descriptor is left for a mailbox");
}

Mailbox::~Mailbox()
{
    ::close(m_wakeUp);
}

void Mailbox::post(Message message)
{
    {
        const std::scoped_lock lock(m_mutex);
        if (m_isClosed)
            return;
        m_messages.push_back(std::move(message));
    }
    wake();
}

std::unique_ptr<QSocketNotifier> Mailbox::open()
{
    auto notifier = std::make_unique<QSocketNotifier>(m_wakeUp, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     [this] { deliver(); });
    return notifier;
}

void Mailbox::close()
{
    std::deque<Message> dropped; // destroyed after the lock is released
    const std::scoped_lock lock(m_mutex);
    m_isClosed = true;
    dropped.swap(m_messages);
}

void Mailbox::deliverUntil(const std::function<bool()> &done)
{
    while (!done()) {
        pollfd wakeUp{.fd = m_wakeUp, .events = POLLIN, .revents = 0};
        poll(&wakeUp, 1, -1);
        deliver();
    }
}

void Mailbox::deliver()
{
    eventfd_t wakeUps = 0;
    eventfd_read(m_wakeUp, &wakeUps);

    // Only the current messages, so that a busy sender cannot hold up the thread's other
    // events; later ones wake it again.
    size_t count = 0;
    {
        const std::scoped_lock lock(m_mutex);
        count = m_messages.size();
    }
    for (; count > 0; --count) {
        Message message;
        {
            const std::scoped_lock lock(m_mutex);
            if (m_messages.empty()) // closed by a message
                return;
            message = std::move(m_messages.front());
            m_messages.pop_front();
        }
        message();
    }
}

void Mailbox::wake() const
{
    eventfd_write(m_wakeUp, 1);
}
