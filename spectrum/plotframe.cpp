// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/plotframe.h"

#include <QLineF>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace {

double width(const SpectrumPoints::Range& range)
{
    return range.highest - range.lowest;
}

/// The part of a segment inside of the rectangle; empty when there is none. Liang and Barsky, ACM
/// Transactions on Graphics 3 (1984) 1: each edge bounds the parameter of the segment.
std::optional<QLineF> clipped(const QLineF& segment, const QRectF& bounds)
{
    double from = 0;
    double to = 1;
    const std::array<std::array<double, 2>, 4> edges{{
        {-segment.dx(), segment.x1() - bounds.left()},
        {segment.dx(), bounds.right() - segment.x1()},
        {-segment.dy(), segment.y1() - bounds.top()},
        {segment.dy(), bounds.bottom() - segment.y1()},
    }};
    for (const auto& [slope, distance] : edges) {
        if (slope == 0 && distance < 0)
            return {};
        if (slope < 0)
            from = std::max(from, distance / slope);
        if (slope > 0)
            to = std::min(to, distance / slope);
    }
    if (from > to)
        return {};
    // Rounding must not carry the end of a very long segment away again.
    const auto inside = [&bounds](QPointF end) {
        return QPointF(std::clamp(end.x(), bounds.left(), bounds.right()),
                       std::clamp(end.y(), bounds.top(), bounds.bottom()));
    };
    return QLineF(inside(from == 0 ? segment.p1() : segment.pointAt(from)),
                  inside(to == 1 ? segment.p2() : segment.pointAt(to)));
}

/// Takes a line's positions one by one and keeps what is seen of it.
class VisibleLines
{
public:
    explicit VisibleLines(const QRectF& visible)
        : bounds(visible)
    {}

    void lineTo(QPointF position)
    {
        if (previous)
            add(QLineF(*previous, position));
        previous = position;
    }

    void interrupt() { previous.reset(); }

    QList<QPolygonF> take() { return std::move(lines); }

private:
    void add(const QLineF& segment)
    {
        const auto seen = clipped(segment, bounds);
        if (!seen)
            return;
        if (lines.isEmpty() || lines.constLast().constLast() != seen->p1())
            lines.append(QPolygonF{seen->p1()});
        lines.last().append(seen->p2());
    }

    QRectF bounds;
    std::optional<QPointF> previous;
    QList<QPolygonF> lines;
};

/// The positions that follow one another in one pixel column.
class Column
{
public:
    void start(QPointF position, double columnNumber)
    {
        number = columnNumber;
        count = 0;
        first = lowest = highest = last = {position, 0};
    }

    [[nodiscard]] bool takes(double columnNumber) const { return number == columnNumber; }

    void add(QPointF position)
    {
        last = {position, ++count};
        if (position.y() < lowest.position.y())
            lowest = last;
        if (position.y() > highest.position.y())
            highest = last;
    }

    void draw(VisibleLines& lines) const
    {
        const auto& [earlier, later] = std::minmax(
            lowest, highest, [](const Member& a, const Member& b) { return a.index < b.index; });
        lines.lineTo(first.position);
        if (earlier.index > 0)
            lines.lineTo(earlier.position);
        if (later.index > earlier.index)
            lines.lineTo(later.position);
        if (last.index > later.index)
            lines.lineTo(last.position);
    }

private:
    struct Member
    {
        QPointF position;
        qsizetype index = 0;
    };

    double number = 0;
    qsizetype count = 0;
    Member first;
    Member lowest;
    Member highest;
    Member last;
};

} // namespace

bool PlotFrame::isEmpty() const
{
    return !(width(ranges.energy) > 0) || !(width(ranges.intensity) > 0) || area.isEmpty();
}

QPointF PlotFrame::position(QPointF point) const
{
    const double right = (point.x() - ranges.energy.lowest) / width(ranges.energy);
    const double up = (point.y() - ranges.intensity.lowest) / width(ranges.intensity);
    return {area.left() + right * area.width(), area.bottom() - up * area.height()};
}

double PlotFrame::distance(QPointF from, QPointF point, bool asStick) const
{
    constexpr double rounding = 0.5; // points on the edge belong to the area
    const QPointF end = position(point);
    if (isEmpty() || !area.adjusted(-rounding, -rounding, rounding, rounding).contains(end))
        return std::numeric_limits<double>::infinity();
    double nearestY = end.y();
    if (asStick) {
        const double base = position({point.x(), 0}).y();
        nearestY = std::clamp(from.y(), std::min(end.y(), base), std::max(end.y(), base));
    }
    return std::hypot(from.x() - end.x(), from.y() - nearestY);
}

QList<QPolygonF> visibleLines(const QList<QPointF>& points, const PlotFrame& frame, qreal columns,
                              qreal margin)
{
    if (frame.isEmpty())
        return {};
    VisibleLines lines(frame.area.adjusted(-margin, -margin, margin, margin));
    // What is beside the area has a column to itself on either side.
    const double outmost = (frame.area.width() + 2 * margin) * columns;
    Column column;
    bool interrupted = true;
    const auto endColumn = [&] {
        if (!interrupted)
            column.draw(lines);
    };
    for (const QPointF& point : points) {
        const QPointF position = frame.position(point);
        if (!std::isfinite(position.x()) || !std::isfinite(position.y())) {
            endColumn();
            lines.interrupt();
            interrupted = true;
            continue;
        }
        const double fromLeft = (position.x() - frame.area.left() + margin) * columns;
        const double number = std::floor(std::clamp(fromLeft, -1.0, outmost));
        if (!interrupted && column.takes(number)) {
            column.add(position);
        } else {
            endColumn();
            column.start(position, number);
            interrupted = false;
        }
    }
    endColumn();
    return lines.take();
}
