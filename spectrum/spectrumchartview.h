// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtCharts/QChartView>

#include <memory>
#include <optional>
#include <utility>

class QLabel;

/// Chart of a spectrum: shows the values under the mouse in its bottom-right corner, zooms into a
/// rectangle dragged with the left button and back to the whole spectrum with the right one. By
/// keyboard the arrows move the values' position, plus and minus zoom, 0 and Escape show the whole,
/// and the key for copying puts the chart as a picture on the clipboard.
///
/// Fitting the chart to the view draws all its points anew. That waits until the view is painted:
/// an entry with many spectra shows one of them at a time, while the others are resized many times
/// over.
class SpectrumChartView : public QChartView
{
    Q_OBJECT

public:
    /// Pixels. A drag that is shorter either way is a slip: it would show a piece of the spectrum
    /// in which there is nothing.
    static constexpr int smallestZoom = 8;

    explicit SpectrumChartView(QWidget* parent = nullptr);

    /// Shows @p newChart in place of the chart that it has, which is deleted. What nobody sees yet
    /// is not laid out: the chart stays hidden until the view is painted.
    void takeChart(std::unique_ptr<QChart> newChart);

    /// Enough for the numbers and titles of the axes. Qt Charts shortens those that do not fit, to
    /// "1..." in the end.
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// The smallest size, too: the chart takes what others leave.
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }

    /// Fits the chart to the view now. A view that is about to be seen for the first time is then
    /// painted once, and not once more for the fitting.
    void fitChart();

    /// Rings a point (photon energy in eV, intensity), as far as it is in the shown ranges.
    void setMark(std::optional<QPointF> point);

protected:
    void drawForeground(QPainter* painter, const QRectF& rect) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void readOut(QPointF position, bool byKey);
    void refreshReadOut();
    void moveReadOut(QPointF step);
    void zoomIn();
    void zoomOut();
    void showAll();
    void showValue(QPointF value);
    void positionHoverLabel();
    [[nodiscard]] std::optional<QPointF> markPosition() const;
    void repaintMark();

    QLabel* hoverLabel;
    mutable std::optional<std::pair<QFont, QSize>> textRoom; ///< For this font; none yet at first.
    std::optional<QPointF> readOutPosition; ///< In the view; none until something was read out.
    bool hasCross = false;                  ///< Where it was read out; by keyboard only.
    std::optional<QPointF> mark;            ///< Point in the plane, not in the view.
    int zoomSteps = 0;                      ///< By key, since the whole spectrum was shown.
    bool fitted = false;                    ///< Whether the chart has the size of the view.
};
