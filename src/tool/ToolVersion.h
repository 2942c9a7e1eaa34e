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

/// What the tool printed for its version. Anything but one line that is a date is a
/// version without one; of nonsense a short beginning is kept.
ToolVersion versionFromOutput(const QByteArray &output);

/// The first release that no longer asks for the client which the video site stopped
/// answering in January 2026; every one before fails each video.
QDate oldestWorkingRelease();

/// How long ago the release was; never negative.
qint64 daysOld(const ToolVersion &version, QDate today);

/// "45 days old", from the 61st day on "5 months old", from 24 months on "3 years old".
QString ageText(qint64 days);
