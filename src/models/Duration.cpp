// SPDX-License-Identifier: GPL-3.0-or-later
#include "Duration.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

QString clockText(double seconds)
{
    // Garbage from the tool may be more seconds than a 64-bit number holds.
    constexpr double longest = 9e15;
    const auto total =
        std::isnan(seconds) ? 0 : static_cast<qint64>(std::clamp(seconds, 0.0, longest));
    const qint64 hours = total / 3600;
    const qint64 minutes = total % 3600 / 60;
    if (hours > 0) {
        return u"%1:%2:%3"_s.arg(hours)
            .arg(minutes, 2, 10, QLatin1Char('0'))
            .arg(total % 60, 2, 10, QLatin1Char('0'));
    }
    return u"%1:%2"_s.arg(minutes).arg(total % 60, 2, 10, QLatin1Char('0'));
}

QString formattedDuration(std::optional<double> seconds)
{
    return seconds && *seconds > 0 ? clockText(*seconds) : QString();
}
