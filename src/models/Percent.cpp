// SPDX-License-Identifier: GPL-3.0-or-later
#include "Percent.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString percentText(double fraction)
{
    return u"%1%"_s.arg(static_cast<qint64>(std::clamp(fraction * 100, -9e15, 9e15)));
}
