// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Notice.h"

class ToolKeeper;

/// The notices about the tool: an update of it, and a tool that is unusable or old.
class ToolNotice : public NoticeSource
{
    Q_OBJECT

public:
    /// The keeper outlives it.
    explicit ToolNotice(ToolKeeper &keeper);

    [[nodiscard]] Notice notice() override;

private:
    [[nodiscard]] Notice updating() const;
    [[nodiscard]] Notice updated() const;
    [[nodiscard]] Notice updateFailed() const;
    [[nodiscard]] Notice complaint() const;

    ToolKeeper &m_keeper;
};
