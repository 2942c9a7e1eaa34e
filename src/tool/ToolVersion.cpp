// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolVersion.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestText = 40;
constexpr qint64 mostDays = 60;
constexpr double daysOfMonth = 30.44; // of a year of 365.25 days
constexpr qint64 mostMonths = 24;     // not included
constexpr qint64 monthsOfYear = 12;

QString counted(qint64 count, const QString &unit)
{
    return u"%1 %2%3 old"_s.arg(count).arg(unit, count == 1 ? QString() : u"s"_s);
}

} // namespace

std::weak_ordering compare(const ToolVersion &left, const ToolVersion &right)
{
    if (const auto days = left.date.toJulianDay() <=> right.date.toJulianDay(); days != 0)
        return days;
    return left.timeOfDay <=> right.timeOfDay;
}

ToolVersion versionFromOutput(const QByteArray &output)
{
    static const QRegularExpression form(
        u"\\A([0-9]{4})\\.([0-9]{2})\\.([0-9]{2})(?:\\.([0-9]{1,6}))?\\z"_s);
    const QString printed = QString::fromUtf8(output.left(1024)).trimmed();
    const auto parts = form.match(printed);
    ToolVersion version{.text = printed.simplified().left(longestText), .date = {}};
    if (!parts.hasMatch())
        return version;
    version.date =
        QDate(parts.captured(1).toInt(), parts.captured(2).toInt(), parts.captured(3).toInt());
    version.timeOfDay = parts.captured(4).toInt();
    return version;
}

QDate oldestWorkingRelease()
{
    return {2026, 1, 31};
}

qint64 daysOld(const ToolVersion &version, QDate today)
{
    return std::max(qint64{0}, version.date.daysTo(today));
}

QString ageText(qint64 days)
{
    if (days <= mostDays)
        return counted(days, u"day"_s);
    const auto months = static_cast<qint64>(std::floor(static_cast<double>(days) / daysOfMonth));
    return months < mostMonths ? counted(months, u"month"_s)
                               : counted(months / monthsOfYear, u"year"_s);
}
