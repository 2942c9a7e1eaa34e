// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleInstance.h"

#include "ApplicationService.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString nameFor(const QString &preferencesFolder)
{
    const QByteArray key =
        QCryptographicHash::hash(preferencesFolder.toUtf8(), QCryptographicHash::Sha1)
            .toHex()
            .left(12);
    return u"/quillon-"_s + QString::fromLatin1(key) + u".lock"_s;
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
    : m_lock(safeFolder(preferencesFolder) + nameFor(preferencesFolder))
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
}

SingleInstance::Start SingleInstance::settle(const QStringList &urls, const QString &token,
                                             const QDBusConnection &bus,
                                             std::chrono::milliseconds patience)
{
    constexpr unsigned long pause = 50; // ms
    QElapsedTimer waited;
    waited.start();
    while (!m_isFirst) {
        if (handOver(firstProcess(), urls, token, bus))
            return Start::handedOver;
        if (waited.elapsed() > patience.count())
            return Start::refused;
        QThread::msleep(pause);
        m_isFirst = m_lock.tryLock();
    }
    return Start::first;
}

/// 0 if it cannot be told.
qint64 SingleInstance::firstProcess() const
{
    qint64 process = 0;
    QString host;
    QString program;
    return m_lock.getLockInfo(&process, &host, &program) ? process : 0;
}
