// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointF>
#include <QString>

#include <functional>
#include <limits>
#include <optional>

/// The text form of a spectrum's points: one point a line, photon energy (eV), then intensity
/// (arbitrary units). The order of the lines is kept and nothing is sorted.
namespace PointText {

/// The points of the lines of a text, in order. A line that is not exactly two numbers, separated
/// by commas, semicolons or white space, is skipped. A comma is never a decimal mark.
///
/// Plain ASCII decimals are read in one pass; lines with anything unusual go to
/// parseLineByExpression(), with which the result always agrees bit for bit.
[[nodiscard]] QList<QPointF> parse(QStringView text);

/// What defines a point line: split at every match of the separator expression, two parts, both
/// converted by the toolkit in the C locale.
[[nodiscard]] std::optional<QPointF> parseLineByExpression(const QString& line);

/// The point of one line, which holds no line feed; empty for a line that is no point. Always what
/// parse() makes of the line.
[[nodiscard]] std::optional<QPointF> pointOf(QStringView line);

/// Whether the line shows nothing: such lines are no points, but nobody's mistake either.
[[nodiscard]] bool isBlank(QStringView line);

/// One line of a text.
struct Line
{
    qsizetype number = 0;   ///< Counted from 0.
    qsizetype position = 0; ///< Of its first character in the text.
    qsizetype length = 0;   ///< Without the line feed.
    std::optional<QPointF> point;
};

/// Shows @p visit every line of a text in order, those that are no points too; what follows the
/// last line feed is a line as well, empty or not.
void forEachLine(QStringView text, const std::function<void(const Line& line)>& visit);

/// How the lines of a text were understood. Blank lines are in neither count. What no point has is
/// no number (NaN).
struct Census
{
    static constexpr double none = std::numeric_limits<double>::quiet_NaN();

    qsizetype points = 0;
    qsizetype otherLines = 0; ///< Lines that are no points.
    /// Number, counted from 1, of the first line that is no point; 0 when there is none.
    qsizetype firstOtherLine = 0;
    double lowestEnergy = none;     ///< eV
    double highestEnergy = none;    ///< eV
    double largestIntensity = none; ///< The signed largest.
};

/// Counts the lines of a text in one pass, at about the price of parse().
[[nodiscard]] Census census(QStringView text);

/// The text without its empty lines; lines of blanks stay.
[[nodiscard]] QString withoutEmptyLines(const QString& text);

/// Points as normalising writes them, a line each: energy with 4 decimals, blank, intensity with 2.
[[nodiscard]] QString normalizedText(const QList<QPointF>& points);

/// Points as resampling writes them, a line each: energy with 3 decimals, blank, intensity with 2.
[[nodiscard]] QString resampledText(const QList<QPointF>& points);

/// Points as loading from a record writes them, a line each: both numbers rounded to 6 significant
/// digits, separated by a semicolon and a blank.
[[nodiscard]] QString loadedText(const QList<QPointF>& points);

} // namespace PointText
