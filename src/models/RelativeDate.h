// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ReferenceDate.h"

#include <QString>

/// How long ago a moment was, or how far ahead it is, in one abbreviated unit and rounded
/// down: "5 min. ago", "in 2 hr.". Months and years are those of the average calendar.
/// Accepts any number of seconds, including NaN.
QString relativeDate(ReferenceDate moment, ReferenceDate now);

/// Milliseconds until a text of relativeDate() may change, for the moment nearest to now:
/// a second in the first minute, later more.
int relativeDateLifetime(double nearestSeconds);
