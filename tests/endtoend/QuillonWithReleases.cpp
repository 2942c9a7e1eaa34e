// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"

#include <QFile>

/// Quillon as it is, but with releases of the tool from a server of the test's own:
///     QuillonWithReleases ADDRESS KEY-FILE --local-pictures HOST:PORT
int main(int argc, char *argv[])
{
    if (argc != 5)
        return 2;
    ProgramSetup setup;
    QFile key(QFile::decodeName(argv[2]));
    if (!key.open(QIODevice::ReadOnly))
        return 2;
    setup.releases.folder = QUrl(QString::fromLocal8Bit(argv[1]));
    setup.releases.key = key.readAll();
    setup.pictures.exception = QString::fromLocal8Bit(argv[4]);
    return runProgram(1, argv, setup);
}
