// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StateFixture.h"

#include <atomic>

/// Collects the outcome of one request, which comes on another thread.
template<typename Value>
class Outcome
{
public:
    Completion<Value> completion()
    {
        return [shared = m_shared](Reply<Value> reply) {
            shared->reply = std::move(reply);
            ++shared->count;
        };
    }

    [[nodiscard]] bool isSettled() const { return m_shared->count > 0; }
    [[nodiscard]] int count() const { return m_shared->count; }
    [[nodiscard]] const Reply<Value> &reply() const
    {
        if (!isSettled())
            qFatal("The request has not settled");
        return *m_shared->reply;
    }
    [[nodiscard]] Value value() const { return std::get<Value>(reply()); }

    /// The error's text; empty for a value.
    [[nodiscard]] QString error() const
    {
        try {
            valueOrThrow<Value>(reply());
            return {};
        } catch (const DescribedError &error) {
            return error.errorDescription();
        }
    }

private:
    struct Shared
    {
        std::optional<Reply<Value>> reply;
        std::atomic<int> count = 0;
    };
    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};
