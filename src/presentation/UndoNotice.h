// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"
#include "Notice.h"

#include <QTimer>

#include <chrono>

/// Offers to take back a clearing of the history or the queue, for a while.
class UndoNotice : public NoticeSource
{
    Q_OBJECT

public:
    /// The state outlives it.
    explicit UndoNotice(AppState &state, std::chrono::milliseconds time = std::chrono::seconds(10));

    [[nodiscard]] Notice notice() override;

private:
    void offer(const QString &text, std::function<void()> undo);
    void close();

    AppState &m_state;
    QString m_text; // empty: there is nothing to take back
    std::function<void()> m_undo;
    QTimer m_time;
};
