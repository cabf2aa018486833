// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlines.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// A line as one of the points of its text.
struct Place
{
    qsizetype lines = 0;  ///< Of the text.
    qsizetype points = 0; ///< Of the text.
    /// Index of the first point that is not before the line, or of the last point of all.
    qsizetype point = 0;
    double energy = std::numeric_limits<double>::quiet_NaN(); ///< Of that point, eV.
};

Place placeOf(QStringView text, qsizetype sought)
{
    Place place;
    bool found = false;
    PointText::forEachLine(text, [&](const PointText::Line& line) {
        ++place.lines;
        if (!line.point)
            return;
        if (!found) {
            place.point = place.points;
            place.energy = line.point->x();
            found = line.number >= sought;
        }
        ++place.points;
    });
    return place;
}

/// The line of the point with this index; empty when there are fewer.
std::optional<qsizetype> lineOfPoint(QStringView text, qsizetype index)
{
    std::optional<qsizetype> found;
    qsizetype points = 0;
    PointText::forEachLine(text, [&](const PointText::Line& line) {
        if (line.point && points++ == index)
            found = line.number;
    });
    return found;
}

} // namespace

namespace PointLines {

std::optional<PointText::Line> nearest(QStringView text, double energy, qsizetype from)
{
    std::optional<PointText::Line> best;
    double smallest = std::numeric_limits<double>::infinity();
    PointText::forEachLine(text, [&](const PointText::Line& line) {
        if (!line.point)
            return;
        const double distance = std::abs(line.point->x() - energy);
        const bool isFirstFromThere =
            best && distance == smallest && best->number < from && line.number >= from;
        if (distance < smallest || isFirstFromThere) {
            smallest = distance;
            best = line;
        }
    });
    return best;
}

qsizetype counterpart(QStringView before, qsizetype line, QStringView after)
{
    const Place place = placeOf(before, line);
    const Place last = placeOf(after, std::numeric_limits<qsizetype>::max());
    if (place.lines == last.lines)
        return std::clamp(line, qsizetype(0), last.lines - 1);
    if (place.points == last.points)
        return lineOfPoint(after, place.point).value_or(0);
    const auto found = nearest(after, place.energy);
    return found ? found->number : 0;
}

} // namespace PointLines
