// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// Whether any process of the group is left, apart from zombies: an orphan of the tool
/// may stay one where no init reaps it.
bool isProcessGroupAlive(qint64 group);
