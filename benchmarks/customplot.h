// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointF>
#include <QSize>

#include <memory>

class QCustomPlot;

/// A chart of QCustomPlot, in a file of its own: its header needs macros that the editor goes
/// without.
class CustomPlot
{
public:
    CustomPlot(const QList<QPointF>& points, QSize size);
    ~CustomPlot();
    Q_DISABLE_COPY_MOVE(CustomPlot)

    void repaint();
    void zoomInOrOut();
    void widenOrNarrow();

private:
    std::unique_ptr<QCustomPlot> plot;
    bool turn = false;
};
