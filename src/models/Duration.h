// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// A duration in seconds as "h:mm:ss" or "m:ss", fractions cut off; empty when
/// there is none or it is not greater than 0.
QString formattedDuration(std::optional<double> seconds);
