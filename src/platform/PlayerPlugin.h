// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlayerEngine.h"

/// The engine from the plug-in that stands beside the program or, installed, in
/// its library folder. Loading it takes a tenth of a second.
std::unique_ptr<PlayerEngine> loadPlayerPlugin(PlayerEngine::Events events, QString &error);
