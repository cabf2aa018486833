// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/chartoverlay.h"

#include <QPainter>
#include <QPen>

namespace {

constexpr qreal markRadius = 4.5;
constexpr qreal crossArm = 6;
constexpr int lineWidth = 2;

QRect around(QPointF position, qreal reach)
{
    return QRectF(position, QSizeF()).adjusted(-reach, -reach, reach, reach).toAlignedRect();
}

} // namespace

namespace ChartOverlay {

void drawMark(QPainter& painter, QPointF position)
{
    const QColor red(200, 30, 30); // the shape tells it from the curve as well
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::white);
    painter.setPen(QPen(red, lineWidth));
    painter.drawEllipse(position, markRadius, markRadius);
}

QRect markArea(QPointF position)
{
    return around(position, markRadius + lineWidth);
}

void drawFocus(QPainter& painter, const QRect& view, const QColor& highlight)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(highlight, lineWidth));
    painter.drawRect(view.adjusted(1, 1, -1, -1));
}

void drawCross(QPainter& painter, QPointF position)
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Qt::black); // on the chart's white, whatever the desktop's colours
    painter.drawLine(position - QPointF(crossArm, 0), position + QPointF(crossArm, 0));
    painter.drawLine(position - QPointF(0, crossArm), position + QPointF(0, crossArm));
}

QRect crossArea(QPointF position)
{
    return around(position, crossArm + lineWidth);
}

} // namespace ChartOverlay
