// SPDX-License-Identifier: GPL-3.0-or-later
#include "FolderWatch.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <utility>

namespace {

/// What is there, and in which state; empty for anything but a regular file.
QByteArray conditionOf(const QString &path)
{
    struct stat file = {};
    if (lstat(QFile::encodeName(path).constData(), &file) != 0 || !S_ISREG(file.st_mode))
        return {};
    QByteArray condition;
    for (const qint64 number :
         {static_cast<qint64>(file.st_ino), static_cast<qint64>(file.st_size),
          static_cast<qint64>(file.st_mtim.tv_sec), static_cast<qint64>(file.st_mtim.tv_nsec)})
        condition += QByteArray::number(number) + ' ';
    return condition;
}

} // namespace

FolderWatch::FolderWatch(QString folder, const Choice &isChosen)
    : m_folder(std::move(folder))
    , m_isChosen(isChosen)
{
    const QStringList names = chosenNames();
    for (const QString &name : names)
        m_before.insert(name, conditionOf(m_folder + u'/' + name));
}

bool FolderWatch::hasCome(const QString &path) const
{
    const QFileInfo file(path);
    const QString name = file.fileName();
    if (!file.isAbsolute() || !m_isChosen(name)
        || QFileInfo(file.path()).canonicalFilePath() != QFileInfo(m_folder).canonicalFilePath())
        return false;
    const QByteArray condition = conditionOf(path);
    return !condition.isEmpty() && condition != m_before.value(name);
}

QStringList FolderWatch::comers() const
{
    QStringList paths;
    const QStringList names = chosenNames();
    for (const QString &name : names) {
        const QString path = m_folder + u'/' + name;
        if (hasCome(path))
            paths.append(path);
    }
    return paths;
}

QStringList FolderWatch::chosenNames() const
{
    QStringList names = QDir(m_folder).entryList(QDir::Files | QDir::Hidden | QDir::System);
    names.removeIf([this](const QString &name) { return !m_isChosen(name); });
    return names;
}
