// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "customplot.h"

#include <qcustomplot.h>

CustomPlot::CustomPlot(const QList<QPointF>& points, QSize size)
    : plot(std::make_unique<QCustomPlot>())
{
    QList<double> energies;
    QList<double> intensities;
    for (const QPointF& point : points) {
        energies.append(point.x());
        intensities.append(point.y());
    }
    // Its usual line is one pixel wide. With ours of two it takes more than a second.
    plot->addGraph()->setData(energies, intensities, true);
    plot->rescaleAxes();
    plot->resize(size);
    plot->show();
}

CustomPlot::~CustomPlot() = default;

void CustomPlot::repaint()
{
    plot->replot();
}

void CustomPlot::zoomInOrOut()
{
    constexpr double energyShare = 0.3;
    constexpr double intensityShare = 0.5;
    turn = !turn;
    plot->xAxis->scaleRange(turn ? energyShare : 1 / energyShare);
    plot->yAxis->scaleRange(turn ? intensityShare : 1 / intensityShare);
    plot->replot();
}

void CustomPlot::widenOrNarrow()
{
    constexpr int step = 7;
    turn = !turn;
    plot->resize(plot->width() + (turn ? step : -step), plot->height());
}
