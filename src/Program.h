// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PictureSource.h"
#include "ToolRelease.h"

/// What the program is told from outside and its users cannot change.
struct ProgramSetup
{
    ReleaseSource releases = ReleaseSource::official();
    PictureSource pictures = {};
};

/// The composition root: makes the parts of the program and runs it until its window is
/// closed. Returns the exit status.
int runProgram(int argc, char *argv[], const ProgramSetup &setup);
