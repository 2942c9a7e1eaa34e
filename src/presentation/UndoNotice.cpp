// SPDX-License-Identifier: GPL-3.0-or-later
#include "UndoNotice.h"

using namespace Qt::StringLiterals;

UndoNotice::UndoNotice(AppState &state, std::chrono::milliseconds time)
    : m_state(state)
{
    m_time.setSingleShot(true);
    m_time.setInterval(time);
    connect(&m_time, &QTimer::timeout, this, &UndoNotice::close);
    connect(&state, &AppState::historyCleared, this, [this](const AppState::History &before) {
        offer(u"The history was cleared."_s, [this, before] { m_state.restoreHistory(before); });
    });
    connect(&state, &AppState::queueCleared, this, [this](const AppState::Queue &before) {
        const qsizetype count = before.size() - m_state.queue().size();
        offer(count == 1 ? u"1 entry was removed."_s : u"%1 entries were removed."_s.arg(count),
              [this, before] { m_state.restoreQueue(before); });
    });
}

Notice UndoNotice::notice()
{
    if (m_text.isEmpty())
        return {};
    return {.kind = u"undo "_s + m_text,
            .title = m_text,
            .text = m_text,
            .symbol = u"arrow.counterclockwise"_s,
            .tone = u"accent"_s,
            .actionText = u"Undo"_s,
            .dismissText = u"Close"_s,
            .act =
                [this] {
                    const auto undo = m_undo;
                    close();
                    undo();
                },
            .dismiss = [this] { close(); }};
}

void UndoNotice::offer(const QString &text, std::function<void()> undo)
{
    m_text = text;
    m_undo = std::move(undo);
    m_time.start();
    Q_EMIT changed();
}

void UndoNotice::close()
{
    m_text.clear();
    m_undo = {};
    m_time.stop();
    Q_EMIT changed();
}
