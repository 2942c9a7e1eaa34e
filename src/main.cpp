// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"

/// The demonstration and the tests name their video site with "--local-pictures
/// HOST:PORT", since pictures from this machine are otherwise refused.
int main(int argc, char *argv[])
{
    ProgramSetup setup;
    if (argc == 3 && qstrcmp(argv[1], "--local-pictures") == 0)
        setup.pictures.exception = QString::fromLocal8Bit(argv[2]);
    return runProgram(argc, argv, setup);
}
