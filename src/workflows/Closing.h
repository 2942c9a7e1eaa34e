// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Thrown into coroutines that wait for the service while the state is closing, so that
/// each ends where it stands. Only what looks after coroutines catches it.
struct Closing
{
};
