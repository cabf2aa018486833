// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/significantdigits.h"

#include <QString>

#include <array>
#include <cmath>

bool SignificantDigits::areAtMostSix(double value)
{
    constexpr std::array<double, 23> powers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr int digits = 6;
    const double magnitude = std::abs(value);
    if (magnitude == 0)
        return true;
    // As many decimals as six digits leave, or one more: logarithms would take most of the time.
    constexpr double log10Of2 = 0.30102999566398120;
    int decimals = digits - 1 - int(std::floor(std::ilogb(magnitude) * log10Of2));
    const auto isWithinBounds = [&] { return decimals >= 0 && decimals < int(powers.size()); };
    if (isWithinBounds() && magnitude * powers.at(size_t(decimals)) >= powers.at(digits))
        --decimals;
    if (isWithinBounds()) {
        // The division is rounded as reading the decimals is.
        const double power = powers.at(size_t(decimals));
        return std::round(magnitude * power) / power == magnitude;
    }
    return QString::number(magnitude, 'g', digits).toDouble() == magnitude;
}
