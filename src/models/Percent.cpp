// SPDX-License-Identifier: GPL-3.0-or-later
#include "Percent.h"

QString percentText(double fraction)
{
    return QStringLiteral("%1%").arg(static_cast<qint64>(fraction * 100));
}
