// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumpoints.h"

#include <algorithm>
#include <cmath>

namespace {

/// Grid spacing, eV.
constexpr double gridStep = 0.001;

/// More grid energies than this (2 keV) do not fit a text editor, and no photoionisation spectrum.
constexpr double mostGridValues = 2'000'000;

/// Index of the last grid energy, counted from 0; negative for an empty grid. Empty when the grid
/// is undefined or too large.
std::optional<int> lastGridIndex(double firstEnergy, double lastEnergy)
{
    const double quotient = ((lastEnergy - gridStep) - (firstEnergy + gridStep)) / gridStep;
    if (quotient <= -1.0)
        return -1;
    if (std::isnan(quotient) || quotient >= mostGridValues)
        return {};
    return static_cast<int>(quotient);
}

std::optional<SpectrumPoints::Range> rangeOf(const QList<QPointF>& points,
                                             double (QPointF::*coordinate)() const)
{
    std::optional<SpectrumPoints::Range> range;
    for (const QPointF& point : points) {
        const double value = (point.*coordinate)();
        if (!std::isfinite(value))
            continue;
        if (!range)
            range = SpectrumPoints::Range{value, value};
        range->lowest = std::min(range->lowest, value);
        range->highest = std::max(range->highest, value);
    }
    return range;
}

double interpolated(const QPointF& from, const QPointF& to, double energy)
{
    return (to.y() - from.y()) * ((energy - from.x()) / (to.x() - from.x())) + from.y();
}

} // namespace

namespace SpectrumPoints {

std::optional<QList<QPointF>> normalized(const QList<QPointF>& points)
{
    if (points.isEmpty())
        return {};

    double largest = points.constFirst().y();
    for (const QPointF& point : points) {
        if (point.y() > largest)
            largest = point.y();
    }
    if (largest == 0.0)
        return {};

    constexpr double fullScale = 1000.0;
    QList<QPointF> scaled = points;
    for (QPointF& point : scaled)
        point.setY(point.y() / largest * fullScale);
    return scaled;
}

std::optional<QList<QPointF>> resampled(const QList<QPointF>& points)
{
    if (points.isEmpty())
        return {};
    const std::optional<int> last = lastGridIndex(points.constFirst().x(), points.constLast().x());
    if (!last)
        return {};

    const double start = points.constFirst().x() + gridStep;
    QList<QPointF> result;
    result.reserve(*last + 1);
    // Grid energies only grow, so a point that lay below one of them lies below all that follow:
    // the first point not below is never to be sought before the last one found, whatever the
    // order.
    auto upper = points.cbegin() + 1;
    for (int i = 0; i <= *last; ++i) {
        const double energy = i * gridStep + start;
        upper = std::find_if(upper, points.cend(),
                             [energy](const QPointF& point) { return point.x() >= energy; });
        if (upper == points.cend())
            break;
        result.append(QPointF(energy, interpolated(*(upper - 1), *upper, energy)));
    }
    return result;
}

QList<QPointF> sticks(const QList<QPointF>& points)
{
    QList<QPointF> polyline;
    polyline.reserve(3 * points.size());
    for (qsizetype i = 0; i < points.size(); ++i) {
        polyline.append(points.at(i));
        if (i < points.size() - 1)
            polyline.append(QPointF(points.at(i).x(), 0));
        if (i < points.size() - 2)
            polyline.append(QPointF(points.at(i + 1).x(), 0));
    }
    return polyline;
}

std::optional<Extent> extent(const QList<QPointF>& points)
{
    const std::optional<Range> energy = rangeOf(points, &QPointF::x);
    const std::optional<Range> intensity = rangeOf(points, &QPointF::y);
    if (!energy || !intensity)
        return {};
    return Extent{*energy, *intensity};
}

} // namespace SpectrumPoints
