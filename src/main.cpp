// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"

int main(int argc, char *argv[])
{
    return runProgram(argc, argv, ReleaseSource::official());
}
