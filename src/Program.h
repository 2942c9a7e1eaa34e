// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ToolRelease.h"

/// Makes the program of its parts and runs it until its window is closed; returns the
/// exit status. The composition root. Releases of the tool come from the source.
int runProgram(int argc, char *argv[], const ReleaseSource &source);
