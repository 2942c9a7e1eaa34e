// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

/// Whether the session's bus takes part in the first exchange with a client, for which it is
/// given this long. Qt would wait for it at the start, without a limit. True also where there is
/// no bus to ask, or none that can be asked this way: then nothing waits. Needs no application
/// object.
bool sessionBusAnswers(std::chrono::milliseconds patience);
