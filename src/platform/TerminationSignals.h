// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>

#include <memory>

/// Makes SIGINT, SIGTERM and SIGHUP close the program as its window does, so
/// that nothing is left behind by the end of a session. One at a time.
class TerminationSignals
{
    Q_DISABLE_COPY_MOVE(TerminationSignals)

public:
    TerminationSignals();
    ~TerminationSignals();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
