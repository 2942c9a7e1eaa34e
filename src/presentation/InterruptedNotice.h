// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Notice.h"

class AppState;

/// Offers what the last start of the program has left undone.
class InterruptedNotice : public NoticeSource
{
    Q_OBJECT

public:
    /// The state outlives it.
    explicit InterruptedNotice(AppState &state);

    [[nodiscard]] Notice notice() override;

private:
    AppState &m_state;
};
