// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Mailbox.h"
#include "YTDLPError.h"

#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>

/// When the stream of the next result is resolved ahead.
struct AheadLimits
{
    double shortest = 60; ///< seconds; nothing is resolved during shorter streams
    double lead = 15;     ///< seconds before the end
    /// How long a URL may wait for its use: sites let theirs run out.
    std::chrono::milliseconds validity = std::chrono::minutes(2);
};

/// The stream URL of what will be played next, resolved while something else plays. Main
/// thread.
class StreamAhead
{
public:
    using Resolve = std::function<void(const QString &videoURL, Completion<QUrl>)>;

    StreamAhead(std::shared_ptr<Mailbox> mailbox, AheadLimits limits, Resolve resolve);

    [[nodiscard]] bool isDue(double position, double duration) const;
    /// Resolves the stream of this video in place of any other, unless it has done so
    /// already, or tried to, within the time that a URL is valid.
    void resolve(const QString &videoURL);
    /// Gives this video's URL to the completion, as soon as it is there. Otherwise false:
    /// there is none that can be used. Forgets it in any case.
    [[nodiscard]] bool handOver(const QString &videoURL, const Completion<QUrl> &completion);
    void forget() { m_slot.reset(); }

private:
    struct Slot;

    const std::shared_ptr<Mailbox> m_mailbox;
    const AheadLimits m_limits;
    const Resolve m_resolve;
    std::shared_ptr<Slot> m_slot;
};
