// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

/// Contrast of two opaque colours from 1 to 21, by WCAG 2.
double contrastRatio(const QColor &a, const QColor &b);

/// The colour, darkened or lightened as far as needed to be legible on that background: a
/// contrast of at least 4.5.
QColor readableOn(const QColor &color, const QColor &background);
