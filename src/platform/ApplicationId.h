// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Names the program to the desktop: its name on the bus, desktop file, icon and window
/// class. CMakeLists.txt says what it is.
inline const QString applicationId = QStringLiteral(QUILLON_ID);
