// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtCharts/QChartView>

class QLabel;

/// Chart of a spectrum: shows the values under the mouse in its bottom-right corner, zooms into a
/// rectangle dragged with the left button and back to the whole spectrum with the right one.
class SpectrumChartView : public QChartView
{
    Q_OBJECT

public:
    explicit SpectrumChartView(QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showValue(QPointF value);
    void positionHoverLabel();

    QLabel* hoverLabel;
};
