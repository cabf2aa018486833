// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointtext.h"

#include <QRegularExpression>

#include <array>
#include <cfloat>
#include <cstdint>

namespace {

bool isSeparator(char16_t c)
{
    return c == u' ' || c == u',' || c == u';' || (c >= u'\t' && c <= u'\r');
}

bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

// Powers of ten that a double holds exactly. A decimal whose digits fit into 53 bits, times or
// divided by one of them, is one correctly rounded operation (W. D. Clinger, "How to Read Floating
// Point Numbers Accurately", PLDI 1990), hence the same double as any correct conversion gives.
constexpr std::array<double, 23> exactPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t largestExactDigits = std::uint64_t{1} << 53U;

/// Reads plain decimals (sign, digits, dot, digits, exponent) from a text, front to back.
class DecimalScanner
{
public:
    explicit DecimalScanner(QStringView text)
        : next(text.utf16())
        , end(next + text.size())
    {}

    void skipSeparators()
    {
        while (next != end && isSeparator(*next))
            ++next;
    }

    [[nodiscard]] bool atEnd() const { return next == end; }

    /// The number up to the next separator; empty when it is not of the plain kind or when its
    /// value takes more than one exact operation.
    std::optional<double> number()
    {
        const bool negative = acceptSign();
        digits = 0;
        digitCount = 0;
        takeDigits();
        int exponent = 0;
        if (accept(u'.')) {
            const int digitsBeforeDot = digitCount;
            takeDigits();
            exponent = digitsBeforeDot - digitCount;
        }
        constexpr int mostDigits = 18; // never overflows 64 bits
        if (digitCount == 0 || digitCount > mostDigits || digits > largestExactDigits)
            return {};
        if ((accept(u'e') || accept(u'E')) && !takeExponent(exponent))
            return {};
        if (next != end && !isSeparator(*next))
            return {};
        return value(negative, exponent);
    }

private:
    bool accept(char16_t c)
    {
        const bool found = next != end && *next == c;
        next += found ? 1 : 0;
        return found;
    }

    /// Whether a minus was taken; a plus is taken too and changes nothing.
    bool acceptSign()
    {
        const bool negative = accept(u'-');
        if (!negative)
            accept(u'+');
        return negative;
    }

    void takeDigits()
    {
        for (; next != end && isDigit(*next); ++next, ++digitCount)
            digits = digits * 10 + static_cast<std::uint64_t>(*next - u'0');
    }

    bool takeExponent(int& exponent)
    {
        const bool negative = acceptSign();
        int written = 0;
        int count = 0;
        constexpr int mostExponentDigits = 3;
        for (; next != end && isDigit(*next) && count <= mostExponentDigits; ++next, ++count)
            written = written * 10 + (*next - u'0');
        exponent += negative ? -written : written;
        return count > 0 && count <= mostExponentDigits;
    }

    [[nodiscard]] std::optional<double> value(bool negative, int exponent) const
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
    std::uint64_t digits = 0;
    int digitCount = 0;
};

/// The point of a line of two plain decimals; empty for every other line.
std::optional<QPointF> parsePlainLine(QStringView line)
{
    DecimalScanner scanner(line);
    scanner.skipSeparators();
    const std::optional<double> energy = scanner.number();
    if (!energy)
        return {};
    scanner.skipSeparators();
    const std::optional<double> intensity = scanner.number();
    if (!intensity)
        return {};
    scanner.skipSeparators();
    if (!scanner.atEnd())
        return {};
    return QPointF(*energy, *intensity);
}

QStringList fixedLines(const QList<QPointF>& points, int energyDecimals)
{
    constexpr int intensityDecimals = 2;
    QStringList lines;
    lines.reserve(points.size());
    for (const QPointF& point : points) {
        lines.append(QString::number(point.x(), 'f', energyDecimals) + QLatin1Char(' ') +
                     QString::number(point.y(), 'f', intensityDecimals));
    }
    return lines;
}

} // namespace

namespace PointText {

QList<QPointF> parse(const QStringList& lines)
{
    QList<QPointF> points;
    points.reserve(lines.size());
    for (const QString& line : lines) {
        if (const std::optional<QPointF> point = parseLine(line))
            points.append(*point);
    }
    return points;
}

std::optional<QPointF> parseLine(QStringView line)
{
    // Where sums are kept with more digits than a double has (x87), one operation rounds twice.
    constexpr bool operationsAreExact = FLT_EVAL_METHOD == 0;
    if constexpr (operationsAreExact) {
        if (const std::optional<QPointF> point = parsePlainLine(line))
            return point;
    }
    return parseLineByExpression(line.toString());
}

std::optional<QPointF> parseLineByExpression(const QString& line)
{
    static const QRegularExpression separator(QStringLiteral("[,;\\s]+"));
    const QStringList parts = line.split(separator, Qt::SkipEmptyParts);
    if (parts.size() != 2)
        return {};
    bool energyIsNumber = false;
    bool intensityIsNumber = false;
    const QPointF point(parts.at(0).toDouble(&energyIsNumber),
                        parts.at(1).toDouble(&intensityIsNumber));
    if (!energyIsNumber || !intensityIsNumber)
        return {};
    return point;
}

QStringList normalizedLines(const QList<QPointF>& points)
{
    return fixedLines(points, 4);
}

QStringList resampledLines(const QList<QPointF>& points)
{
    return fixedLines(points, 3);
}

QString loadedLine(double energy, double intensity)
{
    constexpr int significantDigits = 6;
    return QString::number(energy, 'g', significantDigits) + QLatin1String("; ") +
           QString::number(intensity, 'g', significantDigits);
}

} // namespace PointText
