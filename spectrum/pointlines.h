// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "spectrum/pointtext.h"

#include <QList>
#include <QStringView>

#include <optional>

/// Lines of a point text that are sought by what they mean.
namespace PointLines {

/// The energy that somebody typed, eV: a number as point lines have them, which may have its unit
/// behind it. Empty when it is none, or not finite.
[[nodiscard]] std::optional<double> energyIn(QStringView typed);

/// The line whose point lies nearest to @p energy (eV), whatever the order of the points; of points
/// equally near the first from line @p from on, or else the first of all. Empty when no line is a
/// point with a finite energy.
[[nodiscard]] std::optional<PointText::Line> nearest(QStringView text, double energy,
                                                     qsizetype from = 0);

/// Where @p lines of the text @p before are found again after a command has made @p after of it:
/// the same lines when none was added or taken away, else the same points, else the nearest
/// energies. Always lines that @p after has.
[[nodiscard]] QList<qsizetype> counterparts(QStringView before, const QList<qsizetype>& lines,
                                            QStringView after);

} // namespace PointLines
