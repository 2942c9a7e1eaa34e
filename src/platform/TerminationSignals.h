// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>

#include <memory>

/// Makes SIGINT, SIGTERM and SIGHUP close the program just as its window does, so that
/// the end of a session leaves nothing behind. One at a time.
class TerminationSignals
{
    Q_DISABLE_COPY_MOVE(TerminationSignals)

public:
    TerminationSignals();
    ~TerminationSignals();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
