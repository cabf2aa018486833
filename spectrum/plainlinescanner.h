// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointF>
#include <QStringView>

#include <array>
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <optional>

/// Reads point lines of two plain decimals (sign, digits, dot, digits, exponent), front to back.
///
/// Written by hand because people paste 100,000 lines: parseLineByExpression() takes some fifty
/// times as long (docs/performance.md). A property test holds both against each other.
class PlainLineScanner
{
public:
    explicit PlainLineScanner(QStringView text)
        : next(text.utf16())
        , end(next + text.size())
    {}

    [[nodiscard]] bool atEnd() const { return next == end; }

    /// How much has not been read yet.
    [[nodiscard]] qsizetype left() const { return end - next; }

    /// The point of the line that begins here, all of which is then read; empty, with nothing read,
    /// for every other line.
    std::optional<QPointF> point()
    {
        if constexpr (!operationsAreExact)
            return {};
        const char16_t* const lineBegin = next;
        skipSeparators();
        const std::optional<double> energy = number();
        if (energy) {
            skipSeparators();
            const std::optional<double> intensity = number();
            if (intensity) {
                skipSeparators();
                if (atEnd() || accept(lineFeed))
                    return QPointF(*energy, *intensity);
            }
        }
        next = lineBegin;
        return {};
    }

    /// The line that begins here, whatever it is, without its line feed.
    QStringView line()
    {
        const QStringView rest(next, end);
        const qsizetype length = rest.indexOf(QChar(lineFeed));
        next = length < 0 ? end : next + length + 1;
        return length < 0 ? rest : rest.first(length);
    }

private:
    static constexpr char16_t lineFeed = u'\n';
    // Where sums are kept with more digits than a double has (x87), one operation rounds twice.
    static constexpr bool operationsAreExact = FLT_EVAL_METHOD == 0;
    static constexpr std::uint64_t largestExactDigits = std::uint64_t{1} << 53U;
    // Powers of ten that a double holds exactly. A decimal whose digits fit into 53 bits, times or
    // divided by one of them, is one correctly rounded operation (W. D. Clinger, "How to Read
    // Floating Point Numbers Accurately", PLDI 1990), hence the same double as any correct
    // conversion gives.
    static constexpr std::array<double, 23> exactPowersOfTen{
        1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

    /// Whether the character separates the two numbers of a line.
    static bool isSeparator(char16_t c)
    {
        return c == u' ' || c == u';' || c == u',' || c == u'\t' || (c >= u'\v' && c <= u'\r');
    }

    static bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

    void skipSeparators()
    {
        while (next != end && isSeparator(*next))
            ++next;
    }

    /// The number up to the next separator; empty when it is not of the plain kind or when its
    /// value takes more than one exact operation.
    std::optional<double> number()
    {
        const bool negative = acceptSign();
        std::uint64_t digits = 0;
        std::ptrdiff_t digitCount = takeDigits(digits);
        int exponent = 0;
        if (accept(u'.')) {
            const std::ptrdiff_t decimals = takeDigits(digits);
            digitCount += decimals;
            exponent = -static_cast<int>(decimals);
        }
        constexpr int mostDigits = 18; // never overflows 64 bits
        if (digitCount == 0 || digitCount > mostDigits || digits > largestExactDigits)
            return {};
        if ((accept(u'e') || accept(u'E')) && !takeExponent(exponent))
            return {};
        const char16_t following = upcoming();
        if (following != lineFeed && !isSeparator(following))
            return {};
        return value(negative, digits, exponent);
    }

    /// The character that is read next; behind the last one stands a line feed.
    [[nodiscard]] char16_t upcoming() const { return atEnd() ? lineFeed : *next; }

    bool accept(char16_t c)
    {
        const bool found = next != end && *next == c;
        next += found ? 1 : 0;
        return found;
    }

    /// Whether a minus was taken; a plus is taken too and changes nothing.
    bool acceptSign()
    {
        const char16_t c = upcoming();
        next += c == u'-' || c == u'+' ? 1 : 0;
        return c == u'-';
    }

    /// Appends the digits up to the next other character to @p digits, and returns their number.
    std::ptrdiff_t takeDigits(std::uint64_t& digits)
    {
        const char16_t* const first = next;
        std::uint64_t appended = digits;
        const char16_t* c = first;
        for (; c != end && isDigit(*c); ++c)
            appended = appended * 10 + static_cast<std::uint64_t>(*c - u'0');
        digits = appended;
        next = c;
        return c - first;
    }

    bool takeExponent(int& exponent)
    {
        const bool negative = acceptSign();
        std::uint64_t written = 0;
        const std::ptrdiff_t count = takeDigits(written);
        constexpr int mostExponentDigits = 3;
        if (count == 0 || count > mostExponentDigits)
            return false;
        exponent += negative ? -static_cast<int>(written) : static_cast<int>(written);
        return true;
    }

    static std::optional<double> value(bool negative, std::uint64_t digits, int exponent)
    {
        constexpr int largestExactPower = static_cast<int>(exactPowersOfTen.size()) - 1;
        if (exponent < -largestExactPower || exponent > largestExactPower)
            return {};
        double result = static_cast<double>(digits);
        if (exponent < 0)
            result /= exactPowersOfTen.at(static_cast<std::size_t>(-exponent));
        else
            result *= exactPowersOfTen.at(static_cast<std::size_t>(exponent));
        return negative ? -result : result;
    }

    const char16_t* next;
    const char16_t* end;
};
