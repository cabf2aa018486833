// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumchartview.h"

#include "spectrum/chartoverlay.h"
#include "spectrum/chartpicture.h"
#include "spectrum/plotframe.h"
#include "spectrum/spectrumchart.h"
#include "widgets/darktext.h"

#include <QLabel>
#include <QMouseEvent>
#include <QRubberBand>
#include <QWheelEvent>
#include <QtCharts/QChart>
#include <QtCharts/QValueAxis>

#include <algorithm>

using namespace Qt::StringLiterals;

SpectrumChartView::SpectrumChartView(QWidget* parent)
    : QChartView(new QChart, parent)
    , hoverLabel(new QLabel(this))
{
    setRenderHint(QPainter::Antialiasing);
    setAttribute(Qt::WA_MouseTracking);
    viewport()->setAttribute(Qt::WA_MouseTracking);
    hoverLabel->setStyleSheet(u"background-color: rgba(255, 255, 255, 150); padding: 2px;"_s);
    setDarkText(*hoverLabel);
    hoverLabel->setAlignment(Qt::AlignCenter);
    hoverLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    hoverLabel->show();
}

void SpectrumChartView::takeChart(std::unique_ptr<QChart> newChart)
{
    // The view hands its old chart back to the caller.
    const std::unique_ptr<QChart> replaced(chart());
    newChart->hide();
    textRoom.reset();
    connect(newChart.get(), &QChart::plotAreaChanged, this, &SpectrumChartView::refreshReadOut);
    const QSize smallest = minimumSize(); // which the toolkit replaces, here as in fitChart()
    const QList<QAbstractAxis*> axes = newChart->axes();
    for (const QAbstractAxis* axis : axes) {
        if (const auto* values = qobject_cast<const QValueAxis*>(axis))
            connect(values, &QValueAxis::rangeChanged, this, &SpectrumChartView::refreshReadOut);
    }
    setChart(newChart.release());
    setMinimumSize(smallest);
}

QSize SpectrumChartView::minimumSizeHint() const
{
    // Layouts ask often, and measuring text is dear.
    if (!textRoom || textRoom->first != font())
        textRoom = {font(), SpectrumChart::roomForText(*chart(), fontMetrics())};
    return textRoom->second.expandedTo({0, minimumHeight()});
}

void SpectrumChartView::mousePressEvent(QMouseEvent* event)
{
    fitChart();
    // Qt Charts 6.4 crashes when no item lies under a press: beside the chart.
    if (itemAt(event->position().toPoint()) == nullptr) {
        event->ignore();
        return;
    }
    QChartView::mousePressEvent(event);
}

void SpectrumChartView::mouseMoveEvent(QMouseEvent* event)
{
    fitChart();
    readOut(event->position().toPoint(), false);
    QChartView::mouseMoveEvent(event);
}

void SpectrumChartView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::RightButton) {
        showAll();
        return;
    }
    auto* band = findChild<QRubberBand*>();
    if (band != nullptr && std::min(band->width(), band->height()) < smallestZoom)
        band->hide();
    const SpectrumChart::WithoutPoints whileZooming(*chart());
    QChartView::mouseReleaseEvent(event);
}

void SpectrumChartView::resizeEvent(QResizeEvent* event)
{
    event->accept();
    fitted = false;
    positionHoverLabel();
    if (updatesEnabled() && !viewport()->visibleRegion().isEmpty())
        fitChart();
}

bool SpectrumChartView::viewportEvent(QEvent* event)
{
    const bool isShown = event->type() == QEvent::Show && updatesEnabled();
    if (isShown || event->type() == QEvent::Paint)
        fitChart();
    return QChartView::viewportEvent(event);
}

void SpectrumChartView::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // for the form around, which may have to be scrolled
}

void SpectrumChartView::fitChart()
{
    if (fitted)
        return;
    fitted = true;
    const SpectrumChart::WithoutPoints whileFitting(*chart());
    if (!chart()->isVisible()) {
        chart()->show();
        // An axis keeps asking for no room, as it did while it was hidden, until something about it
        // changes.
        const QList<QAbstractAxis*> axes = chart()->axes();
        for (QAbstractAxis* axis : axes) {
            axis->setTitleVisible(false);
            axis->setTitleVisible(true);
        }
    }
    // Qt Charts replaces the smallest size by one in which no number at an axis is legible.
    const QSize smallest = minimumSize();
    QResizeEvent resize(size(), size());
    QChartView::resizeEvent(&resize);
    setMinimumSize(smallest);
}

void SpectrumChartView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        fitChart();
        if (auto* shown = qobject_cast<SpectrumChart*>(chart()))
            ChartPicture::copy(*shown);
        return;
    }
    const qreal pixels = event->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        moveReadOut({-pixels, 0});
        break;
    case Qt::Key_Right:
        moveReadOut({pixels, 0});
        break;
    case Qt::Key_Up:
        moveReadOut({0, -pixels});
        break;
    case Qt::Key_Down:
        moveReadOut({0, pixels});
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: // plus without Shift on many keyboards
        zoomIn();
        break;
    case Qt::Key_Minus:
        zoomOut();
        break;
    case Qt::Key_0:
    case Qt::Key_Escape:
        showAll();
        break;
    default:
        QChartView::keyPressEvent(event);
    }
}

void SpectrumChartView::focusInEvent(QFocusEvent* event)
{
    QChartView::focusInEvent(event);
    viewport()->update();
}

void SpectrumChartView::focusOutEvent(QFocusEvent* event)
{
    QChartView::focusOutEvent(event);
    viewport()->update();
}

void SpectrumChartView::drawForeground(QPainter* painter, const QRectF& rect)
{
    QChartView::drawForeground(painter, rect);
    if (const auto position = markPosition())
        ChartOverlay::drawMark(*painter, *position);
    if (!hasFocus())
        return;
    ChartOverlay::drawFocus(*painter, viewport()->rect(), palette().color(QPalette::Highlight));
    if (hasCross)
        ChartOverlay::drawCross(*painter, *readOutPosition);
}

void SpectrumChartView::setMark(std::optional<QPointF> point)
{
    if (point == mark)
        return;
    repaintMark();
    mark = point;
    repaintMark();
}

std::optional<QPointF> SpectrumChartView::markPosition() const
{
    const auto* shown = qobject_cast<const SpectrumChart*>(chart());
    if (!mark || shown == nullptr || !shown->isVisible())
        return {};
    const PlotFrame frame = shown->frame();
    const QPointF position = frame.position(*mark);
    // An empty range has no place for anything.
    if (frame.isEmpty() || !frame.area.adjusted(-1, -1, 1, 1).contains(position))
        return {};
    return position;
}

void SpectrumChartView::repaintMark()
{
    if (const auto position = markPosition())
        viewport()->update(ChartOverlay::markArea(*position));
}

void SpectrumChartView::readOut(QPointF position, bool byKey)
{
    if (hasCross)
        viewport()->update(ChartOverlay::crossArea(*readOutPosition));
    readOutPosition = position;
    hasCross = byKey; // the mouse shows its place itself
    if (hasCross)
        viewport()->update(ChartOverlay::crossArea(position));
    refreshReadOut();
}

void SpectrumChartView::refreshReadOut()
{
    if (mark) // its ring reaches beyond the plot, which is all that the chart itself paints anew
        viewport()->update();
    if (readOutPosition)
        showValue(chart()->mapToValue(*readOutPosition));
}

void SpectrumChartView::moveReadOut(QPointF step)
{
    fitChart();
    const QRectF plot = chart()->plotArea();
    const QPointF start = readOutPosition.value_or(plot.center().toPoint()) + step;
    readOut({std::clamp(start.x(), plot.left(), plot.right()),
             std::clamp(start.y(), plot.top(), plot.bottom())},
            true);
}

void SpectrumChartView::zoomIn()
{
    const SpectrumChart::WithoutPoints whileZooming(*chart());
    ++zoomSteps;
    chart()->zoomIn();
}

void SpectrumChartView::zoomOut()
{
    if (zoomSteps <= 1) {
        showAll();
    } else {
        const SpectrumChart::WithoutPoints whileZooming(*chart());
        --zoomSteps;
        chart()->zoomOut();
    }
}

void SpectrumChartView::showAll()
{
    const SpectrumChart::WithoutPoints whileZooming(*chart());
    zoomSteps = 0;
    chart()->zoomReset();
}

void SpectrumChartView::showValue(QPointF value)
{
    constexpr int energyDecimals = 4;
    constexpr int intensityDecimals = 2;
    hoverLabel->setText(u"h\u03bd: %1, I: %2"_s.arg(value.x(), 0, 'f', energyDecimals)
                            .arg(value.y(), 0, 'f', intensityDecimals));
    positionHoverLabel();
}

void SpectrumChartView::positionHoverLabel()
{
    constexpr int margin = 10;
    hoverLabel->adjustSize();
    hoverLabel->move(std::max(0, width() - hoverLabel->width() - margin),
                     std::max(0, height() - hoverLabel->height() - margin));
}
