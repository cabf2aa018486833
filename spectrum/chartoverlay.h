// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QPointF>
#include <QRect>

class QPainter;

/// What a view of a chart paints over it. Positions and sizes are those of the view.
namespace ChartOverlay {

/// A ring around a point.
void drawMark(QPainter& painter, QPointF position);

/// What drawMark() paints on.
[[nodiscard]] QRect markArea(QPointF position);

/// The frame of a view that has the focus.
void drawFocus(QPainter& painter, const QRect& view, const QColor& highlight);

/// The place that is read out by keyboard.
void drawCross(QPainter& painter, QPointF position);

/// What drawCross() paints on.
[[nodiscard]] QRect crossArea(QPointF position);

} // namespace ChartOverlay
