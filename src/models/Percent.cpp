// SPDX-License-Identifier: GPL-3.0-or-later
#include "Percent.h"

#include <algorithm>

QString percentText(double fraction)
{
    return QStringLiteral("%1%").arg(static_cast<qint64>(std::clamp(fraction * 100, -9e15, 9e15)));
}
