// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "spectrum/spectrumpoints.h"

#include <QList>
#include <QPolygonF>
#include <QRectF>

/// Where the plot of a chart is, and which part of the plane it shows.
struct PlotFrame
{
    SpectrumPoints::Extent ranges;
    QRectF area; ///< In the chart, y downwards.

    /// Whether anything can be shown: both ranges and the area have a size.
    [[nodiscard]] bool isEmpty() const;

    /// Where a point (photon energy in eV, intensity) is in the chart; not a finite place for a
    /// point that is none.
    [[nodiscard]] QPointF position(QPointF point) const;

    /// From a position in the area to what is drawn of a point: to itself, or to its stick, which
    /// stands on the base line. Infinite when the point is not in the area.
    [[nodiscard]] double distance(QPointF from, QPointF point, bool asStick) const;
};

/// What can be seen of the line through the points: polylines in the frame's area, cut off at most
/// @p margin beside it.
///
/// A line through a hundred thousand points costs hundreds of milliseconds to paint, and shows no
/// more than one through four of each pixel column: the first, the lowest, the highest and the last
/// of the points that follow one another there. @p columns is how many there are to the unit of the
/// area. Points that are not finite interrupt the line.
[[nodiscard]] QList<QPolygonF> visibleLines(const QList<QPointF>& points, const PlotFrame& frame,
                                            qreal columns, qreal margin);
