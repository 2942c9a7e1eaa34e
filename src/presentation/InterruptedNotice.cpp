// SPDX-License-Identifier: GPL-3.0-or-later
#include "InterruptedNotice.h"

#include "AppState.h"

using namespace Qt::StringLiterals;

InterruptedNotice::InterruptedNotice(AppState &state)
    : m_state(state)
{
    connect(&state, &AppState::interruptedDownloadsChanged, this, &InterruptedNotice::changed);
}

Notice InterruptedNotice::notice()
{
    const qsizetype count = m_state.interruptedDownloads().size();
    if (count == 0)
        return {};
    const QString text = count == 1 ? u"1 download was interrupted."_s
                                    : u"%1 downloads were interrupted."_s.arg(count);
    return {.kind = u"interrupted"_s,
            .title = text,
            .text = text,
            .symbol = u"clock.arrow.circlepath"_s,
            .tone = u"accent"_s,
            .actionText = u"Add to Queue"_s,
            .dismissText = u"Forget"_s,
            .act = [this] { m_state.requeueInterrupted(); },
            .dismiss = [this] { m_state.forgetInterrupted(); }};
}
