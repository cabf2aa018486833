// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPointF>

#include <optional>

class QPlainTextEdit;
class SpectrumChartView;

/// Lets the point list and the chart of a spectrum know each other: the line with the cursor is
/// marked in the chart, and a click into the plot selects the line of the nearest point.
class PointListLink : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned; both have to outlive this, their parent.
    PointListLink(QPlainTextEdit& pointList, SpectrumChartView& chartView, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void markCurrentLine();
    void selectNearest(QPointF position);

    QPlainTextEdit& list;
    SpectrumChartView& view;
    std::optional<QPointF> pressed; ///< Where the left button went down, in the view.
};
