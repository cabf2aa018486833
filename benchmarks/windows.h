// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/mainwindow.h"

#include <QJsonObject>
#include <QTemporaryDir>

class QChartView;
class QMdiArea;
class QPointF;

namespace Windows {

/// Lets everything pending happen: layout, painting and the end of closed windows.
void settle();

/// Makes sure that what is measured really shows a chart.
class ChartWatch : public QObject
{
    Q_OBJECT

public:
    ChartWatch();

    /// Like settle(); ends the program when no chart has been painted since the last time.
    void settleAndPaint();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool painted = false;
};

/// A shown editor whose settings are its own.
struct Editor
{
    Editor();

    void load(const QString& path);

    /// Adds windows for empty datasets.
    void addEmptySpectra(int count);
    void deleteSpectra(int count);

    MainWindow window;
    ChartWatch charts;
    QTemporaryDir settings;
};

/// Replaces the only series of the chart and then the ranges of both axes.
void showInChart(const QChartView& view, const QList<QPointF>& points);

/// The points of the chart's only series.
[[nodiscard]] QList<QPointF> pointsOf(const QChartView& view);

/// A chart of Qt Charts with the points, as the editor sets its own up.
[[nodiscard]] std::unique_ptr<QChartView> bareChart(const QList<QPointF>& points);

/// The same kinds of widgets as a spectrum window, without a line of the editor's code, filled with
/// the same data: what Qt alone takes.
struct BareWindows
{
    BareWindows();
    ~BareWindows();
    Q_DISABLE_COPY_MOVE(BareWindows)

    /// Opens one window for each dataset of the entry.
    void open(const QJsonObject& entry) const;
    void closeAll() const;

    ChartWatch charts;
    QMainWindow window;
    QMdiArea* area;
};

} // namespace Windows
