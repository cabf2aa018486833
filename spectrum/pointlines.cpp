// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlines.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// The lines of a text that are points.
struct PointLine
{
    qsizetype number = 0;
    double energy = 0; ///< eV
};

QList<PointLine> pointLinesOf(QStringView text)
{
    constexpr qsizetype shortestUsualLine = 8;
    QList<PointLine> found;
    found.reserve(text.size() / shortestUsualLine);
    PointText::forEachLine(text, [&found](const PointText::Line& line) {
        if (line.point)
            found.append({line.number, line.point->x()});
    });
    return found;
}

/// The first point that is not before the line, or the last one of all; there is one.
qsizetype pointAt(const QList<PointLine>& points, qsizetype line)
{
    const auto found = std::lower_bound(
        points.begin(), points.end(), line,
        [](const PointLine& point, qsizetype sought) { return point.number < sought; });
    return std::min<qsizetype>(found - points.begin(), points.size() - 1);
}

qsizetype nearestLine(const QList<PointLine>& points, double energy)
{
    const auto found = std::min_element(
        points.begin(), points.end(), [energy](const PointLine& a, const PointLine& b) {
            return std::abs(a.energy - energy) < std::abs(b.energy - energy);
        });
    return found->number;
}

} // namespace

namespace PointLines {

std::optional<double> energyIn(QStringView typed)
{
    QStringView number = typed.trimmed();
    if (number.endsWith("eV"_L1, Qt::CaseInsensitive))
        number.chop(2);
    bool isNumber = false;
    const double energy = number.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(energy))
        return {};
    return energy;
}

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

QList<qsizetype> counterparts(QStringView before, const QList<qsizetype>& lines, QStringView after)
{
    const qsizetype lineFeeds = after.count(u'\n');
    if (before.count(u'\n') == lineFeeds)
        return lines;

    const QList<PointLine> old = pointLinesOf(before);
    const QList<PointLine> now = pointLinesOf(after);
    QList<qsizetype> found;
    for (const qsizetype line : lines) {
        if (old.isEmpty() || now.isEmpty()) {
            found.append(std::min(line, lineFeeds));
            continue;
        }
        const qsizetype point = pointAt(old, line);
        found.append(old.size() == now.size() ? now.at(point).number
                                              : nearestLine(now, old.at(point).energy));
    }
    return found;
}

} // namespace PointLines
