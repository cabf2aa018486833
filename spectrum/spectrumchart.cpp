// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumchart.h"

#include "spectrum/plotframe.h"
#include "spectrum/roundticks.h"
#include "spectrum/spectrumcurve.h"
#include "spectrum/spectrumpoints.h"

#include <QFontMetrics>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QSignalBlocker>
#include <QtCharts/QValueAxis>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QLineSeries* lineOf(const QChart& chart)
{
    const QList<QAbstractSeries*> all = chart.series();
    return all.isEmpty() ? nullptr : qobject_cast<QLineSeries*>(all.constFirst());
}

QValueAxis* axisOf(const QChart& chart, Qt::Orientation orientation)
{
    const QList<QAbstractAxis*> axes = chart.axes(orientation);
    return axes.isEmpty() ? nullptr : qobject_cast<QValueAxis*>(axes.constFirst());
}

SpectrumPoints::Range rangeOf(const QValueAxis* axis)
{
    return axis == nullptr ? SpectrumPoints::Range()
                           : SpectrumPoints::Range{axis->min(), axis->max()};
}

void exchangePoints(QLineSeries& series, const QList<QPointF>& points)
{
    const QSignalBlocker nobodyNoticed(series);
    series.replace(points);
}

/// Adds a series, and takes from the items that draw it what they draw and what they listen to.
void addUndrawn(QChart& chart, QLineSeries* series)
{
    const QList<QGraphicsItem*> before = chart.childItems();
    chart.addSeries(series);
    const QList<QGraphicsItem*> after = chart.childItems();
    for (QGraphicsItem* item : after) {
        QGraphicsObject* object = before.contains(item) ? nullptr : item->toGraphicsObject();
        if (object == nullptr)
            continue;
        item->setFlag(QGraphicsItem::ItemHasNoContents);
        QObject::disconnect(series, nullptr, object, nullptr);
    }
}

} // namespace

SpectrumChart::WithoutPoints::WithoutPoints(const QChart& chart)
    : series(lineOf(chart))
{
    if (series == nullptr)
        return;
    points = series->points();
    exchangePoints(*series, {});
}

SpectrumChart::WithoutPoints::~WithoutPoints()
{
    if (series != nullptr)
        exchangePoints(*series, points);
}

SpectrumChart::SpectrumChart()
{
    legend()->hide();
    hide(); // or it would be laid out anew for each thing that is added
    constexpr QMargins half(10, 10, 10, 10); // of the usual, and none around: the plot needs it
    setMargins(half);
    layout()->setContentsMargins(0, 0, 0, 0);
    addUndrawn(*this, new QLineSeries);
    addAxis(u"h\u03bd / eV"_s, Qt::AlignBottom);
    addAxis(u"Intensity / arb. unit"_s, Qt::AlignLeft);
    curve = new SpectrumCurve(this);
    constexpr qreal aboveGridAndAxes = 5; // where the toolkit draws series
    curve->setZValue(aboveGridAndAxes);
    connect(this, &QChart::plotAreaChanged, this, &SpectrumChart::updateFrame);
}

void SpectrumChart::addAxis(const QString& title, Qt::Alignment side)
{
    auto* axis = new QValueAxis;
    axis->setTitleText(title);
    axis->setLabelFormat(u"%.2f"_s);
    QChart::addAxis(axis, side);
    lineOf(*this)->attachAxis(axis);
    new RoundTicks(*this, axis);
    connect(axis, &QValueAxis::rangeChanged, this, &SpectrumChart::updateFrame);
}

void SpectrumChart::fill(const QList<QPointF>& points, bool sticks)
{
    QLineSeries* line = lineOf(*this);
    if (line == nullptr)
        return;
    line->clear(); // or the old points would be laid out for the new ranges
    fitAxes(points);
    // New labels may need another margin. What is seen is to be right at once, not at the next
    // event.
    if (isVisible())
        layout()->setGeometry(layout()->geometry());
    asSticks = sticks;
    line->replace(asSticks ? SpectrumPoints::sticks(points) : points);
    curve->setPoints(line->points(), line->pen());
    update();
}

void SpectrumChart::fitAxes(const QList<QPointF>& points)
{
    QValueAxis* energyAxis = axisOf(*this, Qt::Horizontal);
    QValueAxis* intensityAxis = axisOf(*this, Qt::Vertical);
    const auto extent = SpectrumPoints::extent(points);
    if (energyAxis == nullptr || intensityAxis == nullptr || !extent)
        return;
    // A zoom remembers the ranges from before it; left alone, it would bring them back over new
    // data. Where there are no data the axes stay as they are, zoomed or not.
    if (isZoomed())
        zoomReset();
    energyAxis->setRange(extent->energy.lowest, extent->energy.highest);
    intensityAxis->setRange(extent->intensity.lowest, extent->intensity.highest);
}

PlotFrame SpectrumChart::frame() const
{
    return {{rangeOf(axisOf(*this, Qt::Horizontal)), rangeOf(axisOf(*this, Qt::Vertical))},
            plotArea()};
}

bool SpectrumChart::showsSticks() const
{
    return asSticks;
}

void SpectrumChart::render(QPainter& painter)
{
    curve->setCacheMode(QGraphicsItem::NoCache); // or a drawing would get the curve as pixels
    scene()->render(&painter, QRectF(QPointF(), size()), sceneBoundingRect());
    curve->setCacheMode(QGraphicsItem::DeviceCoordinateCache);
}

void SpectrumChart::updateFrame()
{
    if (curve != nullptr)
        curve->setFrame(frame());
}

QSize SpectrumChart::roomForText(const QChart& chart, const QFontMetrics& metrics)
{
    // The usual number of ticks with usual numbers, what stands left of or below them, and margins.
    constexpr int ticks = 5;
    constexpr int margins = 40;
    const int energies = ticks * metrics.horizontalAdvance(u"99.99 "_s);
    const int intensities = metrics.horizontalAdvance(u"10000.00"_s) + metrics.height();
    int title = 0;
    const QList<QAbstractAxis*> axes = chart.axes(Qt::Vertical);
    for (const QAbstractAxis* axis : axes)
        title =
            std::max(title, QFontMetrics(axis->titleFont()).horizontalAdvance(axis->titleText()));
    return {energies + intensities + margins, title + 3 * metrics.height() + margins};
}

bool SpectrumChart::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest && !isVisible())
        return true; // nobody has seen it yet; it is laid out when it is shown
    const WithoutPoints whatIsLaidOut(*this);
    return QChart::event(event);
}
