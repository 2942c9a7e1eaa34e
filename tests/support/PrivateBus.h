// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QUuid>

#include <csignal>

/// A bus of the test's own that can hang and die.
class PrivateBus
{
    Q_DISABLE_COPY_MOVE(PrivateBus)

public:
    PrivateBus()
    {
        m_daemon.setReadChannel(QProcess::StandardOutput);
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--print-address")});
        while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead())
            ;
        m_address = m_daemon.readLine().trimmed();
    }
    ~PrivateBus()
    {
        for (const QString &name : m_names)
            QDBusConnection::disconnectFromBus(name);
        die();
    }

    [[nodiscard]] QByteArray address() const { return m_address; }

    /// One more client; only while the bus answers.
    QDBusConnection connection()
    {
        m_names.append(QUuid::createUuid().toString());
        return QDBusConnection::connectToBus(QString::fromLocal8Bit(m_address), m_names.last());
    }

    void hang() { signal(SIGSTOP); }
    void goOn() { signal(SIGCONT); }
    void die()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

private:
    void signal(int number) { ::kill(static_cast<pid_t>(m_daemon.processId()), number); }

    QProcess m_daemon;
    QByteArray m_address;
    QStringList m_names;
};
