// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BusObject.h"

#include <QStringList>

#include <memory>

/// A name of this program on a bus, under which others find it. Never waits for the bus.
/// Main thread.
class BusName
{
    Q_DISABLE_COPY_MOVE(BusName)

public:
    /// Takes the first of these names that is free.
    BusName(const QDBusConnection &bus, QStringList names);
    ~BusName();

    /// Asks for it. What is to be found under it has to be there before.
    void acquire();
    /// Gives it back, or withdraws the question.
    void release();

private:
    void ask(qsizetype index);

    BusObject m_daemon;
    QStringList m_names;
    qsizetype m_asked = -1;             // the name asked for last; -1: none
    std::unique_ptr<QObject> m_attempt; // answers to an earlier one come too late
};
