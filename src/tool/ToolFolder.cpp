// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolFolder.h"

#include "ToolPlace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t executable = 0755;
constexpr mode_t forOwner = 0700;

QByteArray encoded(const QString &path)
{
    return QFile::encodeName(path);
}

/// Removes the folder, or the link that stands in its place.
void clear(const QString &folder)
{
    if (QFileInfo(folder).isSymLink())
        QFile::remove(folder);
    else
        QDir(folder).removeRecursively();
}

/// 0, or the system's error.
int writeToDisk(const QString &path)
{
    const int descriptor = open(encoded(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    const int error = fsync(descriptor) == 0 ? 0 : errno;
    close(descriptor);
    return error;
}

bool isUnknown(int error)
{
    return error == EINVAL || error == ENOSYS; // the answer of a file system that cannot do it
}

int renamed(const QByteArray &from, const QByteArray &to, unsigned int how)
{
    return renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), how) == 0 ? 0 : errno;
}

/// 0, or the system's error: EEXIST if something is there by now.
int renameToNothing(const QByteArray &from, const QByteArray &to)
{
    const int error = renamed(from, to, RENAME_NOREPLACE);
    if (!isUnknown(error))
        return error;
    return link(from.constData(), to.constData()) == 0 ? 0 : errno;
}

/// 0, or the system's error: EEXIST if what was there is, by now, not Quillon's.
int renameOverOwn(const QByteArray &from, const QByteArray &to)
{
    const int error = renamed(from, to, RENAME_EXCHANGE);
    if (isUnknown(error))
        return renamed(from, to, 0);
    if (error == 0 && !isOwn(QFile::decodeName(from))) {
        renamed(from, to, RENAME_EXCHANGE);
        return EEXIST;
    }
    return error;
}

} // namespace

ToolFolder::ToolFolder(const QString &toolPath)
    : m_toolPath(toolPath)
    , m_folder(QFileInfo(toolPath).path())
    , m_workFolder(m_folder + u"/.quillon-update"_s)
{
}

ToolFolder::~ToolFolder()
{
    if (m_descriptor < 0)
        return;
    clear(m_workFolder);
    close(m_descriptor);
}

std::optional<QString> ToolFolder::take()
{
    if (!QDir().mkpath(m_folder))
        return u"The folder %1 could not be made."_s.arg(m_folder);
    const int error = lock();
    if (error == EWOULDBLOCK)
        return u"Another Quillon is updating yt-dlp at this moment."_s;
    if (error != 0)
        return writingFailed(m_folder, error);
    clear(m_workFolder);
    if (mkdir(encoded(m_workFolder).constData(), forOwner) != 0)
        return writingFailed(m_folder, errno);
    return {};
}

QString ToolFolder::workFile(const QString &name) const
{
    return m_workFolder + u'/' + name;
}

std::optional<QString> ToolFolder::install(const QString &finished) const
{
    const QFileInfo place(m_toolPath);
    const bool isThere = place.exists() || place.isSymLink();
    const QString foreign =
        u"Quillon did not put %1 there, so it stays as it is."_s.arg(m_toolPath);
    if (isThere && !isOwn(m_toolPath))
        return foreign;
    if (chmod(encoded(finished).constData(), executable) != 0)
        return writingFailed(m_folder, errno);
    // Otherwise the name might reach the disk before the contents.
    if (const int error = writeToDisk(finished); error != 0)
        return writingFailed(m_folder, error);
    const QByteArray from = encoded(finished);
    const QByteArray to = encoded(m_toolPath);
    const int error = isThere ? renameOverOwn(from, to) : renameToNothing(from, to);
    if (error == EEXIST)
        return foreign;
    if (error != 0)
        return writingFailed(m_folder, error);
    fsync(m_descriptor);
    return {};
}

void ToolFolder::clearLeftovers(const QString &toolPath)
{
    ToolFolder folder(toolPath);
    // An instance that takes it clears itself when it goes.
    if (QFileInfo::exists(folder.m_workFolder)) [[maybe_unused]]
        const bool isTaken = folder.lock();
}

int ToolFolder::lock()
{
    const int descriptor = open(encoded(m_folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    // Network file systems may be unable to lock folders; then it works without.
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        close(descriptor);
        return EWOULDBLOCK;
    }
    m_descriptor = descriptor;
    return 0;
}

QString writingFailed(const QString &path, int error)
{
    if (error == ENOSPC || error == EDQUOT || error == EFBIG)
        return u"There is no room left on the disk for a new yt-dlp."_s;
    return u"%1 cannot be written: %2."_s.arg(path, qt_error_string(error));
}
