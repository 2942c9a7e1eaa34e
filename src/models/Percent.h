// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A fraction as whole per cent, cut off rather than rounded, with its sign:
/// 0.999 is "99%", so that 100% is read only when it is true.
QString percentText(double fraction);
