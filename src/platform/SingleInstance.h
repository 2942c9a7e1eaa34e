// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

/// Keeps a user to one running program for each folder of preferences, since
/// two would overwrite each other's. Main thread.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    explicit SingleInstance(const QString &preferencesFolder);

    /// Whether this is the one. If not, the one that runs has been asked to come
    /// forward.
    [[nodiscard]] bool isFirst() const { return m_isFirst; }

    /// This one is about to end: a start from now on waits for that and is first.
    void stopListening() { m_server.close(); }

Q_SIGNALS:
    /// A second start was made.
    void activationRequested();

private:
    SingleInstance(const QString &preferencesFolder, const QString &path);

    QString m_socketName;
    QLockFile m_lock;
    QLocalServer m_server;
    bool m_isFirst = false;
};
