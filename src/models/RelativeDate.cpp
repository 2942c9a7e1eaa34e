// SPDX-License-Identifier: GPL-3.0-or-later
#include "RelativeDate.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;
constexpr double week = 7 * day;
constexpr double month = 30.436875 * day; // a twelfth of the Gregorian year
constexpr double year = 365.2425 * day;

// Nobody reads larger numbers.
constexpr double longest = 1e12 * year;

struct Unit
{
    double seconds;
    const char *one;
    const char *many;
};

constexpr std::array<Unit, 7> units{{{year, "yr.", "yr."},
                                     {month, "mo.", "mo."},
                                     {week, "wk.", "wk."},
                                     {day, "day", "days"},
                                     {hour, "hr.", "hr."},
                                     {minute, "min.", "min."},
                                     {1, "sec.", "sec."}}};

} // namespace

QString relativeDate(ReferenceDate moment, ReferenceDate now)
{
    const double ago = now.seconds - moment.seconds;
    const double distance = std::isnan(ago) ? 0 : std::min(std::abs(ago), longest);
    if (distance < 1)
        return u"now"_s;
    const auto &unit = *std::find_if(units.begin(), units.end(),
                                     [=](const Unit &each) { return distance >= each.seconds; });
    const auto count = static_cast<qint64>(distance / unit.seconds);
    const QString text = QLocale(QLocale::English, QLocale::UnitedStates).toString(count) + u' '
        + QLatin1String(count == 1 ? unit.one : unit.many);
    return ago > 0 ? u"%1 ago"_s.arg(text) : u"in %1"_s.arg(text);
}

int relativeDateLifetime(double nearestSeconds)
{
    constexpr int second = 1000;
    if (nearestSeconds < minute)
        return second;
    return nearestSeconds < hour ? 5 * second : 60 * second;
}
