// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProcessGroup.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

bool isProcessGroupAlive(qint64 group)
{
    const QStringList entries = QDir(u"/proc"_s).entryList(QDir::Dirs);
    for (const QString &entry : entries) {
        QFile file(u"/proc/%1/stat"_s.arg(entry));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        // "pid (name) state parent group …"; the name may hold anything.
        const QByteArray stat = file.readAll();
        const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        if (fields.size() > 2 && fields[2].toLongLong() == group && fields[0] != "Z"
            && fields[0] != "X")
            return true;
    }
    return false;
}
