// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>

#include <compare>

/// A version as the tool prints it: the date of its release, and for a nightly build
/// the time of it.
struct ToolVersion
{
    QString text;      ///< as printed; empty when nothing is known
    QDate date;        ///< invalid when the text is no date
    int timeOfDay = 0; ///< a nightly build's fourth part, HHMMSS; else 0

    [[nodiscard]] bool isDated() const { return date.isValid(); }
    bool operator==(const ToolVersion &) const = default;
};

/// Both must be dated.
std::weak_ordering compare(const ToolVersion &left, const ToolVersion &right);

/// The version that the tool printed. Anything but one line with a date is a version
/// without one; of nonsense a short beginning is kept.
ToolVersion versionFromOutput(const QByteArray &output);

/// The first release that no longer uses the client that the video site stopped answering
/// in January 2026; earlier ones fail for every video.
QDate oldestWorkingRelease();

/// How long ago the release was; never negative.
qint64 daysOld(const ToolVersion &version, QDate today);

/// "45 days old", from 61 days "2 months old", from 24 months "2 years old".
QString ageText(qint64 days);
