// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/windowpriority.h"

#include "app/droppedfile.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QDropEvent>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>

namespace {

bool isShortcutOf(const QWidget& window, const QKeyEvent& event)
{
    const QKeySequence pressed(event.keyCombination());
    const QList<QAction*> actions = window.findChildren<QAction*>(Qt::FindDirectChildrenOnly);
    return std::any_of(actions.begin(), actions.end(), [&pressed](const QAction* action) {
        return action->shortcut().matches(pressed) == QKeySequence::ExactMatch;
    });
}

} // namespace

WindowPriority::WindowPriority(QWidget* favouredWindow)
    : QObject(favouredWindow)
    , window(favouredWindow)
{
    QApplication::instance()->installEventFilter(this);
}

bool WindowPriority::isInsideWindow(QObject* watched) const
{
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget == window)
        return false;
    const QWidget* top = widget->window();
    // A floating dock is a window of its own, but what it shows is still part of ours.
    const bool inFloatingDock =
        qobject_cast<const QDockWidget*>(top) != nullptr && top->parentWidget() == window;
    return top == window || inFloatingDock;
}

bool WindowPriority::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        const auto& keyEvent = *static_cast<QKeyEvent*>(event);
        if (!isInsideWindow(watched) || !isShortcutOf(*window, keyEvent))
            return false;
        event->ignore();
        return true;
    }
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        const auto& drop = *static_cast<QDropEvent*>(event);
        if (!isInsideWindow(watched) || droppedJsonFile(drop.mimeData()).isEmpty())
            return false;
        static_cast<QObject*>(window)->event(event);
        return true;
    }
    default:
        return false;
    }
}
