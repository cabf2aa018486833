// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/readablecolour.h"

#include <algorithm>
#include <cmath>

namespace {

/// Relative luminance, 0 (black) to 1 (white).
double luminance(const QColor& colour)
{
    const auto linear = [](int channel) {
        constexpr double most = 255;
        const double value = channel / most;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
           0.0722 * linear(colour.blue());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readableColour(const QColor& colour, const QColor& background)
{
    // A little more than what is asked for: smoothed letters are nowhere as dark as their colour.
    constexpr double enough = 5.5;
    constexpr int lightest = 255;
    const bool onLight = contrast(Qt::black, background) > contrast(Qt::white, background);
    const int step = onLight ? -1 : 1;
    QColor found = colour.toHsl();
    int lightness = found.lightness();
    while (contrast(found, background) < enough && lightness + step >= 0 &&
           lightness + step <= lightest) {
        lightness += step;
        found.setHsl(found.hslHue(), found.hslSaturation(), lightness);
    }
    return found.toRgb();
}
