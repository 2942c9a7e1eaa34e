// SPDX-License-Identifier: GPL-3.0-or-later
#include "StreamAhead.h"

#include <QDeadlineTimer>

#include <optional>
#include <utility>

struct StreamAhead::Slot
{
    [[nodiscard]] bool hasExpired() const { return reply && validity.hasExpired(); }

    QString videoURL;
    std::optional<Reply<QUrl>> reply; // nothing while the tool is at work
    QDeadlineTimer validity;
    Completion<QUrl> waiting; // who wants it as soon as it comes
};

StreamAhead::StreamAhead(std::shared_ptr<Mailbox> mailbox, AheadLimits limits, Resolve resolve)
    : m_mailbox(std::move(mailbox))
    , m_limits(limits)
    , m_resolve(std::move(resolve))
{
}

bool StreamAhead::isDue(double position, double duration) const
{
    return duration > m_limits.shortest && duration - position <= m_limits.lead;
}

void StreamAhead::resolve(const QString &videoURL)
{
    if (m_slot && m_slot->videoURL == videoURL && !m_slot->hasExpired())
        return;
    m_slot = std::make_shared<Slot>(
        Slot{.videoURL = videoURL, .reply = {}, .validity = {}, .waiting = {}});
    m_resolve(
        videoURL,
        [mailbox = m_mailbox, slot = m_slot, validity = m_limits.validity](Reply<QUrl> reply) {
            mailbox->post([slot, validity, reply = std::move(reply)] {
                if (slot->waiting) {
                    slot->waiting(reply);
                } else {
                    slot->reply = reply;
                    slot->validity.setRemainingTime(validity);
                }
            });
        });
}

bool StreamAhead::handOver(const QString &videoURL, const Completion<QUrl> &completion)
{
    const std::shared_ptr<Slot> slot = std::exchange(m_slot, nullptr);
    if (!slot || slot->videoURL != videoURL || slot->hasExpired())
        return false;
    if (!slot->reply) {
        slot->waiting = completion;
        return true;
    }
    // What has failed may succeed now.
    if (errorOf(*slot->reply))
        return false;
    completion(*slot->reply);
    return true;
}
