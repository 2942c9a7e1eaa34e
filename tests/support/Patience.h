// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTest>

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#pragma GCC diagnostic ignored "-Wconversion" // its QTRY macros convert
#endif

/// How long a test waits for what should happen, in milliseconds. Far longer than it
/// takes, for slow machines.
inline constexpr int patience = 30000;

/// Whether the condition comes true in time, while events are handled. For helpers, which
/// return it: a macro of QTest would end the helper, and the test would go on.
template<typename Condition>
[[nodiscard]] bool waitFor(Condition &&condition)
{
    return QTest::qWaitFor(std::forward<Condition>(condition), patience);
}
