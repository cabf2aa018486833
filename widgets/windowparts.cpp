// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/windowparts.h"

#include <QDockWidget>

bool isInsideWindow(const QObject* object, const QWidget& window)
{
    const auto* widget = qobject_cast<const QWidget*>(object);
    if (widget == nullptr || widget == &window)
        return false;
    const QWidget* top = widget->window();
    const bool inFloatingDock =
        qobject_cast<const QDockWidget*>(top) != nullptr && top->parentWidget() == &window;
    return top == &window || inFloatingDock;
}
