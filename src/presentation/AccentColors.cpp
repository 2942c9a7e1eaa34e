// SPDX-License-Identifier: GPL-3.0-or-later
#include "AccentColors.h"

#include <algorithm>
#include <cmath>

namespace {

// WCAG 2.1, success criterion 1.4.3, for text of ordinary size.
constexpr double readableContrast = 4.5;

double linear(float part)
{
    const double value = part;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

} // namespace

double contrastRatio(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readableOn(const QColor &color, const QColor &background)
{
    constexpr float step = 0.01F;
    const float direction = luminance(background) > 0.18 ? -step : step;
    float hue = 0;
    float saturation = 0;
    float lightness = 0;
    color.getHslF(&hue, &saturation, &lightness);
    QColor readable = color;
    while (contrastRatio(readable, background) < readableContrast && lightness >= 0
           && lightness <= 1) {
        lightness += direction;
        readable.setHslF(hue, saturation, std::clamp(lightness, 0.0F, 1.0F));
    }
    return readable;
}
