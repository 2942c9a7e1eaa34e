// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// Whether any process of the group is left, ended ones that nobody has waited
/// for apart: an orphan of the tool may stay as such where no init reaps it.
bool isProcessGroupAlive(qint64 group);
