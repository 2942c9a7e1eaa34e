// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleInstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int answerTimeout = 1000; // ms
constexpr int endTimeout = 5000;    // ms; longer than an orderly exit takes

QString nameFor(const QString &preferencesFolder)
{
    const QByteArray key =
        QCryptographicHash::hash(preferencesFolder.toUtf8(), QCryptographicHash::Sha1)
            .toHex()
            .left(12);
    return u"/quillon-"_s + QString::fromLatin1(key);
}

/// Where nobody else can create files: the session's runtime folder if it is private,
/// else that of the preferences.
QString safeFolder(const QString &preferencesFolder)
{
    QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    constexpr auto others =
        QFile::WriteGroup | QFile::ReadGroup | QFile::WriteOther | QFile::ReadOther;
    const QFileInfo folder(session);
    const bool isSafe = folder.isAbsolute() && folder.isDir() && folder.ownerId() == getuid()
        && !(folder.permissions() & others) && folder.isWritable();
    if (isSafe)
        return session;
    QDir().mkpath(preferencesFolder);
    return preferencesFolder;
}

} // namespace

SingleInstance::SingleInstance(const QString &preferencesFolder)
    : SingleInstance(preferencesFolder, safeFolder(preferencesFolder) + nameFor(preferencesFolder))
{
}

SingleInstance::SingleInstance(const QString &preferencesFolder, const QString &path)
    : m_socketName(path + u".socket"_s)
    , m_lock(path + u".lock"_s)
{
    m_lock.setStaleLockTime(0); // held as long as its process lives
    m_isFirst = m_lock.tryLock();
    if (!m_isFirst && m_lock.error() != QLockFile::LockFailedError) {
        // Without write access nobody can spoil the preferences of another instance
        // either.
        qWarning("Quillon cannot tell whether another one runs: %s cannot be written",
                 qUtf8Printable(preferencesFolder));
        m_isFirst = true;
    }
    if (!m_isFirst) {
        QLocalSocket running;
        running.connectToServer(m_socketName);
        if (running.waitForConnected(answerTimeout))
            return;
        m_isFirst = m_lock.tryLock(endTimeout);
        if (!m_isFirst)
            return;
    }
    QLocalServer::removeServer(m_socketName); // left by a crash
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(m_socketName);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        m_server.nextPendingConnection()->deleteLater();
        Q_EMIT activationRequested();
    });
}
