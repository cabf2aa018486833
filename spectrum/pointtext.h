// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointF>
#include <QStringList>

#include <optional>

/// The text form of a spectrum's points: one point a line, photon energy (eV), then intensity
/// (arbitrary units). The order of the lines is kept and nothing is sorted.
namespace PointText {

/// The points of the lines, in order. A line that is not exactly two numbers, separated by commas,
/// semicolons or white space, is skipped. A comma is never a decimal mark.
[[nodiscard]] QList<QPointF> parse(const QStringList& lines);

/// The point of one line. Plain ASCII decimals are read in one pass; whatever is unusual goes to
/// parseLineByExpression(), with which the result always agrees bit for bit.
[[nodiscard]] std::optional<QPointF> parseLine(QStringView line);

/// What defines a point line: split at every match of the separator expression, two parts, both
/// converted by the toolkit in the C locale.
[[nodiscard]] std::optional<QPointF> parseLineByExpression(const QString& line);

/// Lines as normalising writes them: energy with 4 decimals, blank, intensity with 2.
[[nodiscard]] QStringList normalizedLines(const QList<QPointF>& points);

/// Lines as resampling writes them: energy with 3 decimals, blank, intensity with 2.
[[nodiscard]] QStringList resampledLines(const QList<QPointF>& points);

/// A line as loading from a record writes it: both numbers rounded to 6 significant digits,
/// separated by a semicolon and a blank.
[[nodiscard]] QString loadedLine(double energy, double intensity);

} // namespace PointText
