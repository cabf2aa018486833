// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumchart.h"

#include "spectrum/spectrumpoints.h"

#include <QGraphicsLayout>
#include <QtCharts/QChart>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace Qt::StringLiterals;

namespace {

void addAxis(QChart& chart, QLineSeries& series, const QString& title, Qt::Alignment side)
{
    auto* axis = new QValueAxis;
    axis->setTitleText(title);
    axis->setLabelFormat(u"%.2f"_s);
    chart.addAxis(axis, side);
    series.attachAxis(axis);
}

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

void fitAxes(QChart& chart, const QList<QPointF>& points)
{
    QValueAxis* energyAxis = axisOf(chart, Qt::Horizontal);
    QValueAxis* intensityAxis = axisOf(chart, Qt::Vertical);
    const auto extent = SpectrumPoints::extent(points);
    if (energyAxis == nullptr || intensityAxis == nullptr || !extent)
        return;
    // A zoom remembers the ranges from before it; left alone, it would bring them back over new
    // data. Where there are no data the axes stay as they are, zoomed or not.
    if (chart.isZoomed())
        chart.zoomReset();
    energyAxis->setRange(extent->energy.lowest, extent->energy.highest);
    intensityAxis->setRange(extent->intensity.lowest, extent->intensity.highest);
}

} // namespace

namespace SpectrumChart {

std::unique_ptr<QChart> build()
{
    auto chart = std::make_unique<QChart>();
    chart->legend()->hide();
    chart->hide(); // or it would be laid out anew for each thing that is added
    constexpr QMargins half(10, 10, 10, 10); // of the usual, and none around: the plot needs it
    chart->setMargins(half);
    chart->layout()->setContentsMargins(0, 0, 0, 0);
    auto* series = new QLineSeries;
    chart->addSeries(series);
    addAxis(*chart, *series, u"h\u03bd / eV"_s, Qt::AlignBottom);
    addAxis(*chart, *series, u"Intensity / arb. unit"_s, Qt::AlignLeft);
    return chart;
}

void fill(QChart& chart, const QList<QPointF>& points, bool asSticks)
{
    QLineSeries* line = lineOf(chart);
    if (line == nullptr)
        return;
    // Every call that changes something draws all points anew: so the old ones go first and the new
    // ones come last.
    line->clear();
    fitAxes(chart, points);
    line->replace(asSticks ? SpectrumPoints::sticks(points) : points);
    chart.update();
}

} // namespace SpectrumChart
