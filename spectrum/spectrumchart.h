// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointF>
#include <QPointer>
#include <QtCharts/QChart>
#include <QtCharts/QLineSeries>

class SpectrumCurve;
struct PlotFrame;

/// The chart of a spectrum: one line over a horizontal axis of photon energies (eV) and a vertical
/// one of intensities (arbitrary units), without a legend.
///
/// The series holds every point, but does not draw them: the toolkit lays all of them out anew at
/// each change of range or size, which takes a fifth of a second for 100,000. A SpectrumCurve draws
/// instead what can be seen.
class SpectrumChart : public QChart
{
    Q_OBJECT

public:
    /// Without points, and hidden until somebody shows it.
    SpectrumChart();

    /// Draws the points, as sticks or as a curve, and fits the axes to them; a zoom ends. No points
    /// leave the axes as they are, and a chart without a line stays as it is.
    void fill(const QList<QPointF>& points, bool sticks);

    /// The plot and the ranges that it shows.
    [[nodiscard]] PlotFrame frame() const;

    /// Paints the chart, from the top left corner on, with the painter's own sharpness.
    void render(QPainter& painter);

    /// Whether the points were drawn as sticks.
    [[nodiscard]] bool showsSticks() const;

    /// The size in which the usual numbers and the titles of a chart's axes are legible.
    [[nodiscard]] static QSize roomForText(const QChart& chart, const QFontMetrics& metrics);

    /// While one exists, changes of ranges and size do not make the toolkit lay out the points of
    /// the chart's series: the series is without them, and has them again in the end.
    class WithoutPoints
    {
    public:
        explicit WithoutPoints(const QChart& chart);
        ~WithoutPoints();
        Q_DISABLE_COPY_MOVE(WithoutPoints)

    private:
        QPointer<QLineSeries> series;
        QList<QPointF> points;
    };

protected:
    bool event(QEvent* event) override;

private:
    void addAxis(const QString& title, Qt::Alignment side);
    void fitAxes(const QList<QPointF>& points);
    void updateFrame();

    SpectrumCurve* curve = nullptr;
    bool asSticks = false;
};
