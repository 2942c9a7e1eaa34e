// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Mailbox.h"
#include "YTDLPError.h"

#include <coroutine>
#include <memory>
#include <optional>

/// Suspends a coroutine until a request of the service has settled, and resumes
/// it on the mailbox's thread, in order with everything else posted there.
/// Yields the value or throws the error.
///
/// Compilers have mangled coroutines that await complicated expressions: await
/// this only as `const auto value = co_await function(named, arguments);`.
template<typename Value>
class ReplyAwaiter
{
public:
    using Start = std::function<void(Completion<Value>)>;
    /// Called with the failure, or with nothing, before the coroutine continues; may
    /// throw.
    using SettledHandler = std::function<void(const DescribedError *)>;

    /// `start` makes the request with the completion given to it.
    ReplyAwaiter(std::shared_ptr<Mailbox> mailbox, Start start, SettledHandler onSettled)
        : m_mailbox(std::move(mailbox))
        , m_start(std::move(start))
        , m_onSettled(std::move(onSettled))
    {
    }

    [[nodiscard]] bool await_ready() const noexcept { return false; }

    void await_suspend(std::coroutine_handle<> waiting)
    {
        // Once posted, the coroutine may run and end at any time: nothing of
        // this object is touched on the worker thread.
        m_start([this, waiting, mailbox = m_mailbox](Reply<Value> reply) {
            mailbox->post([this, waiting, reply = std::move(reply)]() mutable {
                m_reply = std::move(reply);
                waiting.resume();
            });
        });
    }

    Value await_resume()
    {
        m_onSettled(errorOf(*m_reply));
        return valueOrThrow(std::move(*m_reply));
    }

private:
    std::shared_ptr<Mailbox> m_mailbox;
    Start m_start;
    SettledHandler m_onSettled;
    std::optional<Reply<Value>> m_reply;
};
