// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointF>

#include <optional>

/// What is computed from the points of a spectrum: x is the photon energy in eV, y the intensity in
/// arbitrary units.
namespace SpectrumPoints {

/// The points scaled so that the largest intensity (signed, not by magnitude) becomes 1000. Empty
/// when there is nothing to scale: no points, or a largest intensity of 0.
[[nodiscard]] std::optional<QList<QPointF>> normalized(const QList<QPointF>& points);

/// The points interpolated linearly on a grid of 1 meV that starts 1 meV above the first energy and
/// ends at most 1 meV below the last. Points are taken in the given order, unsorted ones too: each
/// grid energy is interpolated towards the first point, from the second on, that is not below it.
///
/// The list is empty when the last energy lies less than 1 meV above the first. No list at all when
/// there are no points, or when the grid is undefined (an energy that is not a number) or too large
/// to be worked with; the caller then leaves its points alone.
[[nodiscard]] std::optional<QList<QPointF>> resampled(const QList<QPointF>& points);

/// The polyline that shows each point as a stick from the base line to its intensity. Between the
/// last two points the piece along the base line is left out, so the last stick is drawn slanted.
[[nodiscard]] QList<QPointF> sticks(const QList<QPointF>& points);

struct Range
{
    double lowest = 0;
    double highest = 0;
};

/// Smallest and largest energy and intensity of the points.
struct Extent
{
    Range energy;
    Range intensity;
};

/// The extent of the points, as far as their coordinates are finite; empty when there are none.
[[nodiscard]] std::optional<Extent> extent(const QList<QPointF>& points);

} // namespace SpectrumPoints
