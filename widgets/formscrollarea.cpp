// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/formscrollarea.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QScrollBar>

FormScrollArea::FormScrollArea(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    followFocus();
}

void FormScrollArea::followFocus()
{
    // Once for all areas: each change of the focus would be told to every spectrum of an entry.
    static QPointer<QObject> follower;
    if (!follower.isNull())
        return;
    follower = new QObject(qApp);
    connect(qApp, &QApplication::focusChanged, follower.data(), [](QWidget* /*old*/, QWidget* now) {
        for (QWidget* around = now; around != nullptr; around = around->parentWidget()) {
            if (auto* area = qobject_cast<FormScrollArea*>(around))
                area->showFocus(now);
        }
    });
}

QSize FormScrollArea::minimumSizeHint() const
{
    constexpr int fewestCharacters = 20;
    constexpr int fewestLines = 8;
    const bool isAsWideAsForm =
        widget() != nullptr && horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff;
    const int width = isAsWideAsForm ? widget()->minimumSizeHint().width() +
                                           verticalScrollBar()->sizeHint().width()
                                     : fewestCharacters * fontMetrics().averageCharWidth();
    return {width, fewestLines * fontMetrics().lineSpacing()};
}

QSize FormScrollArea::sizeHint() const
{
    return widget() == nullptr ? QScrollArea::sizeHint() : widget()->sizeHint();
}

bool FormScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    const bool isScrolled = QScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry(); // the smallest width is the form's
    return isScrolled;
}

void FormScrollArea::showFocus(const QWidget* focus)
{
    // What is clicked is in view already, and must not move away under the mouse.
    const bool isClicked = QApplication::mouseButtons() != Qt::NoButton;
    if (widget() == nullptr || !widget()->isAncestorOf(focus) || isClicked)
        return;
    // The whole field, where ensureWidgetVisible() would be content with its cursor; the beginning
    // of what is larger than the area.
    const QRect field(focus->mapTo(widget(), QPoint(0, 0)), focus->size());
    constexpr int margin = 10;
    ensureVisible(field.right(), field.bottom(), margin, margin);
    ensureVisible(field.left(), field.top(), margin, margin);
}
