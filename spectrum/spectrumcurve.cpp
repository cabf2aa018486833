// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumcurve.h"

#include "spectrum/coveredsegments.h"

#include <QLineF>
#include <QPaintEngine>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>

namespace {

/// At most four in each column of pixels, unless the energies go back and forth.
constexpr qsizetype mostUsualSegments = 20'000;

/// Segment by segment, as the toolkit draws series: its rasteriser takes time with the square of
/// the edges that cross a row of pixels, as those of a noisy spectrum all do. Those of all lines
/// together: sticks whose base line is out of sight are a line each.
void drawSegments(QPainter& painter, const QList<QPolygonF>& lines, const QRectF& area)
{
    QList<QLineF> segments;
    for (const QPolygonF& line : lines) {
        for (qsizetype i = 1; i < line.size(); ++i)
            segments.append(QLineF(line.at(i - 1), line.at(i)));
    }
    const bool isTangled = segments.size() > mostUsualSegments;
    painter.drawLines(isTangled ? withoutCovered(segments, area, painter.deviceTransform().m11())
                                : segments);
}

} // namespace

SpectrumCurve::SpectrumCurve(QGraphicsItem* parent)
    : QGraphicsItem(parent)
{
    // A chart that fills a screen of 3840 x 2160 pixels has to stay in the cache.
    constexpr int kibibytes = 48 * 1024;
    QPixmapCache::setCacheLimit(std::max(QPixmapCache::cacheLimit(), kibibytes));
    setCacheMode(DeviceCoordinateCache);
    setAcceptedMouseButtons(Qt::NoButton);
}

void SpectrumCurve::setPoints(const QList<QPointF>& newPoints, const QPen& newPen)
{
    points = newPoints;
    pen = newPen;
    update();
}

void SpectrumCurve::setFrame(const PlotFrame& newFrame)
{
    prepareGeometryChange();
    frame = newFrame;
    update();
}

QRectF SpectrumCurve::boundingRect() const
{
    return frame.area;
}

void SpectrumCurve::paint(QPainter* painter, const QStyleOptionGraphicsItem* /*option*/,
                          QWidget* /*widget*/)
{
    const QTransform toDevice = painter->deviceTransform();
    // A drawing has no pixels; it may be enlarged.
    constexpr qreal finest = 8;
    const bool hasPixels = painter->paintEngine()->type() == QPaintEngine::Raster;
    const qreal columns = hasPixels ? std::max(1.0, toDevice.m11()) : finest;
    painter->setClipRect(frame.area, Qt::IntersectClip);
    painter->setPen(pen);
    const QList<QPolygonF> lines = visibleLines(points, frame, columns, pen.widthF());
    if (hasPixels) {
        drawSegments(*painter, lines, frame.area);
        return;
    }
    for (const QPolygonF& line : lines)
        painter->drawPolyline(line);
}
