// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A fraction as a whole percentage with its sign, cut off rather than rounded: 0.999 is
/// "99%", so that "100%" is always true.
QString percentText(double fraction);
