// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/coveredsegments.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

/// The pixels of an area, and through which of them a line goes.
class Pixels
{
public:
    Pixels(const QRectF& area, double pixelsPerUnit)
        : bounds(area)
        , scale(pixelsPerUnit)
        , width(count(area.width()))
        , height(count(area.height()))
        , taken(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {}

    /// Goes from pixel to pixel along the segment. Whether one of them was new.
    bool take(const QLineF& segment)
    {
        const double length = std::max(std::abs(segment.dx()), std::abs(segment.dy()));
        const int steps = std::max(1, static_cast<int>(std::ceil(length * scale)));
        const QPointF step(segment.dx() / steps, segment.dy() / steps);
        QPointF position = segment.p1();
        bool isNew = false;
        for (int i = 0; i <= steps; ++i, position += step) {
            auto pixel = taken.begin() + index(position);
            isNew = isNew || !*pixel;
            *pixel = true;
        }
        return isNew;
    }

private:
    [[nodiscard]] int count(double length) const
    {
        constexpr int most = 10'000; // more than any screen has
        return std::clamp(static_cast<int>(std::ceil(length * scale)), 1, most);
    }

    [[nodiscard]] std::ptrdiff_t index(QPointF position) const
    {
        const auto column = static_cast<int>((position.x() - bounds.left()) * scale);
        const auto row = static_cast<int>((position.y() - bounds.top()) * scale);
        return std::ptrdiff_t{std::clamp(row, 0, height - 1)} * width +
               std::clamp(column, 0, width - 1);
    }

    QRectF bounds;
    double scale;
    int width;
    int height;
    std::vector<bool> taken;
};

} // namespace

QList<QLineF> withoutCovered(const QList<QLineF>& segments, const QRectF& area, double scale)
{
    Pixels pixels(area, scale);
    QList<QLineF> kept;
    for (const QLineF& segment : segments) {
        if (pixels.take(segment))
            kept.append(segment);
    }
    return kept;
}
