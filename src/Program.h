// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PictureSource.h"
#include "ToolRelease.h"

/// What the program is told from outside, which nobody who uses it can change.
struct ProgramSetup
{
    ReleaseSource releases = ReleaseSource::official();
    PictureSource pictures = {};
};

/// Makes the program of its parts and runs it until its window is closed; returns the
/// exit status. The composition root.
int runProgram(int argc, char *argv[], const ProgramSetup &setup);
