// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/decimaltext.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>

namespace {

constexpr std::array<double, 10> powersOfTen{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

// Written by hand because nothing that is there does it: std::to_chars gives another text than the
// toolkit in 7,394 of 5.8 million cases (29.125 becomes 29.13, where the toolkit has 29.12), and
// texts must not change with the tool. A line takes the toolkit 604 ns, std::to_chars 332 and this
// 132.

/// How often 10^-decimals goes into @p magnitude, rounded to the nearest whole number; empty where
/// one multiplication cannot tell for certain.
std::optional<std::uint64_t> nearestMultiple(double magnitude, int decimals)
{
    // Below this the product is off by less than 1e-7, and so is the distance from a tie.
    constexpr double largestProduct = 1e9;
    constexpr double closestToTie = 1e-6;
    const double product = magnitude * powersOfTen.at(static_cast<std::size_t>(decimals));
    if (!(product < largestProduct)) // nor NaN
        return {};
    const auto whole = static_cast<std::uint64_t>(product);
    const double rest = product - static_cast<double>(whole);
    if (std::abs(rest - 0.5) < closestToTie)
        return {};
    return rest < 0.5 ? whole : whole + 1;
}

void appendMultiple(QString& text, bool negative, std::uint64_t multiple, int decimals)
{
    std::array<char16_t, 24> buffer{}; // sign, 20 digits of 64 bits, dot
    const char16_t* const end = buffer.data() + buffer.size();
    char16_t* first = buffer.data() + buffer.size();
    const auto prepend = [&first](char16_t c) { *--first = c; };
    const auto prependDigit = [&] {
        prepend(static_cast<char16_t>(u'0' + multiple % 10));
        multiple /= 10;
    };
    for (int i = 0; i < decimals; ++i)
        prependDigit();
    if (decimals > 0)
        prepend(u'.');
    do
        prependDigit();
    while (multiple > 0);
    if (negative)
        prepend(u'-');
    text.append(QStringView(first, end));
}

/// Decimals that give @p magnitude six significant digits; none for magnitudes that are written
/// with an exponent, or nearly so.
std::optional<int> decimalsOfSixDigits(double magnitude)
{
    constexpr std::array<double, 10> smallest{1e5, 1e4, 1e3, 1e2, 1e1, 1e0, 1e-1, 1e-2, 1e-3, 1e-4};
    constexpr double largest = 999'999;
    if (!(magnitude <= largest)) // nor NaN
        return {};
    for (std::size_t decimals = 0; decimals < smallest.size(); ++decimals) {
        if (magnitude >= smallest.at(decimals))
            return static_cast<int>(decimals);
    }
    return {};
}

} // namespace

namespace DecimalText {

void appendFixed(QString& text, double value, int decimals)
{
    const bool negative = std::signbit(value);
    const std::optional<std::uint64_t> multiple = nearestMultiple(std::abs(value), decimals);
    if (multiple && !(negative && *multiple == 0))
        appendMultiple(text, negative, *multiple, decimals);
    else
        text.append(QString::number(value, 'f', decimals));
}

void appendSignificant(QString& text, double value)
{
    constexpr int significantDigits = 6;
    const double magnitude = std::abs(value);
    const std::optional<int> wanted = decimalsOfSixDigits(magnitude);
    const std::optional<std::uint64_t> multiple =
        wanted ? nearestMultiple(magnitude, *wanted) : std::nullopt;
    if (!multiple) {
        text.append(QString::number(value, 'g', significantDigits));
        return;
    }
    std::uint64_t digits = *multiple;
    int decimals = *wanted;
    for (; decimals > 0 && digits % 10 == 0; --decimals)
        digits /= 10;
    appendMultiple(text, std::signbit(value), digits, decimals);
}

} // namespace DecimalText
