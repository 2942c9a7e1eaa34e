// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleInstance.h"

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QStandardPaths>

namespace {

constexpr int answerTimeout = 1000; // ms
constexpr int endTimeout = 5000;    // ms; longer than an orderly end takes

QString runtimePath(const QString &preferencesFolder)
{
    const QByteArray key =
        QCryptographicHash::hash(preferencesFolder.toUtf8(), QCryptographicHash::Sha1)
            .toHex()
            .left(12);
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)
        + QStringLiteral("/quillon-%1").arg(QString::fromLatin1(key));
}

} // namespace

SingleInstance::SingleInstance(const QString &preferencesFolder)
    : m_socketName(runtimePath(preferencesFolder) + QStringLiteral(".socket"))
    , m_lock(runtimePath(preferencesFolder) + QStringLiteral(".lock"))
{
    m_lock.setStaleLockTime(0); // held as long as its process lives
    m_isFirst = m_lock.tryLock() || m_lock.error() != QLockFile::LockFailedError;
    if (!m_isFirst) {
        QLocalSocket running;
        running.connectToServer(m_socketName);
        if (running.waitForConnected(answerTimeout))
            return;
        m_isFirst = m_lock.tryLock(endTimeout);
        if (!m_isFirst)
            return;
    }
    QLocalServer::removeServer(m_socketName); // what a crash left
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(m_socketName);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        m_server.nextPendingConnection()->deleteLater();
        Q_EMIT activationRequested();
    });
}
