// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadFolder.h"

#include "ToolText.h"

QString downloadFolder(const QString &setting, const QString &home, const QStringList &downloads)
{
    QString folder = trimmedOfBlanks(setting);
    if (folder.isEmpty())
        return downloads.isEmpty() ? home : downloads.first();
    if (folder.startsWith(u"~/"))
        return home + u'/' + folder.mid(2);
    if (folder == u"~")
        return home;
    return folder;
}
