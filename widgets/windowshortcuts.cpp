// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/windowshortcuts.h"

#include "widgets/windowparts.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

WindowShortcuts::WindowShortcuts(QWidget* favouredWindow)
    : QObject(favouredWindow)
    , window(favouredWindow)
{
    QApplication::instance()->installEventFilter(this);
}

void WindowShortcuts::add(const QKeySequence& keys, QAction* action)
{
    connect(new QShortcut(keys, window), &QShortcut::activated, action, &QAction::trigger);
    action->setToolTip(u"%1 (%2)"_s.arg(action->text(), keys.toString(QKeySequence::NativeText)));
}

bool WindowShortcuts::isShortcut(const QKeyEvent& event) const
{
    const QKeySequence pressed(event.keyCombination());
    const QList<QAction*> actions = window->findChildren<QAction*>(Qt::FindDirectChildrenOnly);
    return std::any_of(actions.begin(), actions.end(), [&pressed](const QAction* action) {
        return action->shortcut().matches(pressed) == QKeySequence::ExactMatch;
    });
}

bool WindowShortcuts::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride || !isInsideWindow(watched, *window) ||
        !isShortcut(*static_cast<QKeyEvent*>(event)))
        return false;
    event->ignore();
    return true;
}
