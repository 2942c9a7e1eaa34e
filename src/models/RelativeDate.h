// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ReferenceDate.h"

#include <QString>

/// How long ago a moment was, or in how long it will be, in one abbreviated unit
/// and rounded down: "5 min. ago", "in 2 hr.". Months and years are those of the
/// average calendar. Any number of seconds is fine, also one that is no number.
QString relativeDate(ReferenceDate moment, ReferenceDate now);

/// Milliseconds after which a text of relativeDate() may read otherwise, for the
/// moment that is nearest to now: a second in the first minute, later more.
int relativeDateLifetime(double nearestSeconds);
