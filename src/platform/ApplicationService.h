// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BusName.h"

#include <QObject>

/// What the desktop may ask of the running program, under its identifier on the session's
/// bus. Every program of the session can ask, so what comes is not to be trusted. Never
/// waits for the bus. Main thread.
class ApplicationService : public QObject
{
    Q_OBJECT

public:
    explicit ApplicationService(const QDBusConnection &bus = QDBusConnection::sessionBus());

    /// The program is about to end: one that starts from now on waits for that, and is not
    /// sent here.
    void close();

Q_SIGNALS:
    /// A token lets the window come to the front; it may be empty.
    void activated(const QString &token);
    void openRequested(const QStringList &urls, const QString &token);
    void actionRequested(const QString &name, const QString &token);

private:
    BusName m_name;
};

/// Hands URLs to the program with this process number, or brings it to the front if there
/// are none. Waits a second at most for each of the bus' answers. False if that process does
/// not answer under the identifier.
bool handOver(qint64 process, const QStringList &urls, const QString &token,
              const QDBusConnection &bus = QDBusConnection::sessionBus());
