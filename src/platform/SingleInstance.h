// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

/// Allows one running program per folder of preferences, since two would overwrite each
/// other's. Main thread.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(const QString &preferencesFolder);

    /// Whether this is the first instance. If not, the first has been asked to come to
    /// the front.
    [[nodiscard]] bool isFirst() const { return m_isFirst; }

    /// This instance is about to end: one that starts from now on waits for it and is
    /// first.
    void stopListening() { m_server.close(); }

Q_SIGNALS:
    /// The program was started again.
    void activationRequested();

private:
    SingleInstance(const QString &preferencesFolder, const QString &path);

    QString m_socketName;
    QLockFile m_lock;
    QLocalServer m_server;
    bool m_isFirst = false;
};
