// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "spectrum/plotframe.h"

#include <QGraphicsItem>
#include <QPen>

/// The line of a chart, drawn with no more points than can be seen. What was drawn for the screen
/// is kept until the points, the plot or the scale change: motions above it do not draw it anew.
class SpectrumCurve : public QGraphicsItem
{
public:
    explicit SpectrumCurve(QGraphicsItem* parent);

    void setPoints(const QList<QPointF>& newPoints, const QPen& newPen);
    void setFrame(const PlotFrame& newFrame);

    [[nodiscard]] QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QList<QPointF> points;
    QPen pen;
    PlotFrame frame;
};
