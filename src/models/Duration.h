// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// Seconds as "h:mm:ss" or "m:ss", fractions cut off; "0:00" for what is not a time.
QString clockText(double seconds);

/// A duration in seconds as on a clock; empty when there is none or it is not greater
/// than 0.
QString formattedDuration(std::optional<double> seconds);
