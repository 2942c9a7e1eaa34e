// SPDX-License-Identifier: GPL-3.0-or-later
#include "HomeDirectory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

QString homeDirectory()
{
    QString home = QFile::decodeName(qgetenv("HOME"));
    if (home.isEmpty()) {
        if (const passwd *const user = getpwuid(getuid()))
            home = QFile::decodeName(user->pw_dir);
    }
    while (home.size() > 1 && home.endsWith(u'/'))
        home.chop(1);
    return home;
}

QString toolFolder()
{
    const QString home = homeDirectory();
    return QFileInfo(home).isDir() ? home : u"/"_s;
}

QString absoluteForTool(const QString &path)
{
    return QDir::cleanPath(QDir(toolFolder()).absoluteFilePath(path));
}
