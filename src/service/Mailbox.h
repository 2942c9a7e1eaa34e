// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

/// Messages to another thread, run there in the order in which they were posted. A plain
/// mutex and a wake-up descriptor, because thread checkers can follow those but not
/// queued signals.
class Mailbox
{
    Q_DISABLE_COPY_MOVE(Mailbox)

public:
    using Message = std::function<void()>;

    Mailbox();
    ~Mailbox();

    /// Any thread. A message for a closed mailbox is dropped.
    void post(Message message);

    /// On the receiving thread: its event loop delivers while the result lives.
    [[nodiscard]] std::unique_ptr<QSocketNotifier> open();

    /// Drop all current and future messages.
    void close();

    /// On the receiving thread, at its end: wait for messages and deliver them until
    /// `done` holds.
    void deliverUntil(const std::function<bool()> &done);

private:
    void deliver();
    void wake() const;

    int m_wakeUp = -1;
    std::mutex m_mutex;
    std::deque<Message> m_messages;
    bool m_isClosed = false;
};
