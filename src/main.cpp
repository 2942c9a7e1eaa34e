// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandLine.h"
#include "Program.h"

#include <cstdio>

using namespace Qt::StringLiterals;

/// The demonstration and the tests name their video site with "--local-pictures
/// HOST:PORT" in front, since pictures from this machine are otherwise refused.
int main(int argc, char *argv[])
{
    ProgramSetup setup;
    if (argc >= 3 && qstrcmp(argv[1], "--local-pictures") == 0) {
        setup.pictures.exception = QString::fromLocal8Bit(argv[2]);
        std::copy(argv + 3, argv + argc + 1, argv + 1);
        argc -= 2;
    }
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    // Without a display, too.
    if (const QString answer = answerTo(arguments); !answer.isEmpty()) {
        std::fputs(qUtf8Printable(answer), stdout);
        return 0;
    }
    return runProgram(argc, argv, setup);
}
