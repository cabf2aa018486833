// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlistlink.h"

#include "spectrum/plotframe.h"
#include "spectrum/pointlistlines.h"
#include "spectrum/pointtext.h"
#include "spectrum/spectrumchart.h"
#include "spectrum/spectrumchartview.h"

#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <cmath>
#include <limits>

namespace {

std::optional<PointText::Line> nearestLine(const QString& text, const PlotFrame& frame, bool sticks,
                                           QPointF position)
{
    std::optional<PointText::Line> nearest;
    double shortest = std::numeric_limits<double>::infinity();
    PointText::forEachLine(text, [&](const PointText::Line& line) {
        if (!line.point)
            return;
        const double distance = frame.distance(position, *line.point, sticks);
        if (distance < shortest) {
            shortest = distance;
            nearest = line;
        }
    });
    return nearest;
}

} // namespace

PointListLink::PointListLink(QPlainTextEdit& pointList, SpectrumChartView& chartView,
                             QObject* parent)
    : QObject(parent)
    , list(pointList)
    , view(chartView)
{
    connect(&list, &QPlainTextEdit::cursorPositionChanged, this, &PointListLink::markCurrentLine);
    connect(&list, &QPlainTextEdit::selectionChanged, this, &PointListLink::markCurrentLine);
    connect(&list, &QPlainTextEdit::textChanged, this, &PointListLink::markCurrentLine);
    list.installEventFilter(this);
    view.viewport()->installEventFilter(this);
}

bool PointListLink::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &list) {
        if (event->type() == QEvent::FocusIn)
            markCurrentLine();
        return false;
    }
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        pressed.reset();
        if (press->button() == Qt::LeftButton)
            pressed = press->position();
    } else if (event->type() == QEvent::MouseButtonRelease && pressed) {
        const QPointF released = static_cast<QMouseEvent*>(event)->position();
        const QPointF drag = released - *pressed;
        pressed.reset();
        if (std::abs(drag.x()) < SpectrumChartView::smallestZoom &&
            std::abs(drag.y()) < SpectrumChartView::smallestZoom)
            selectNearest(released);
    }
    return false;
}

// A list that nobody has touched yet has its cursor at the start; a mark there would tell nothing.
void PointListLink::markCurrentLine()
{
    const QTextCursor cursor = list.textCursor();
    const QTextBlock line = cursor.block();
    constexpr int longest = 1000; // characters; nobody writes two numbers with so many
    const bool isTouched =
        cursor.position() > 0 || cursor.hasSelection() || list.hasFocus() || view.hasFocus();
    if (!isTouched || line.length() > longest)
        view.setMark({});
    else
        view.setMark(PointText::pointOf(PointListLines::plainText(line)));
}

void PointListLink::selectNearest(QPointF position)
{
    const auto* chart = qobject_cast<const SpectrumChart*>(view.chart());
    if (chart == nullptr || !chart->frame().area.contains(position))
        return;
    // The list may hold newer points than the chart; what is selected has to be in the list.
    const auto nearest =
        nearestLine(list.toPlainText(), chart->frame(), chart->showsSticks(), position);
    if (nearest)
        PointListLines::select(list, *nearest);
}
