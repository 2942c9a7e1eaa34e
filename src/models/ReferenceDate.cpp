// SPDX-License-Identifier: GPL-3.0-or-later
#include "ReferenceDate.h"

#include <QTimeZone>

#include <algorithm>
#include <cmath>

namespace {

// From 1970-01-01 to 2001-01-01, both 00:00:00 UTC.
constexpr qint64 epochOffset = 978'307'200;

} // namespace

ReferenceDate ReferenceDate::now()
{
    return fromDateTime(QDateTime::currentDateTimeUtc());
}

ReferenceDate ReferenceDate::fromDateTime(const QDateTime &moment)
{
    return {static_cast<double>(moment.toMSecsSinceEpoch() - epochOffset * 1000) / 1000.0};
}

QDateTime ReferenceDate::toDateTime() const
{
    // Some 200 million years either way, which is what QDateTime can hold.
    constexpr double farthest = 6e15;
    const double milliseconds = std::clamp(std::round(seconds * 1000.0), -farthest, farthest);
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(milliseconds) + epochOffset * 1000,
                                          QTimeZone::utc());
}
