// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"

#include <QFile>

/// Quillon as it is, but with releases of the tool from a server of the test's own:
///     QuillonWithReleases ADDRESS KEY-FILE
int main(int argc, char *argv[])
{
    if (argc != 3)
        return 2;
    ReleaseSource source = ReleaseSource::official();
    QFile key(QFile::decodeName(argv[2]));
    if (!key.open(QIODevice::ReadOnly))
        return 2;
    source.folder = QUrl(QString::fromLocal8Bit(argv[1]));
    source.key = key.readAll();
    return runProgram(1, argv, source);
}
