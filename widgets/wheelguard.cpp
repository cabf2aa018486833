// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/wheelguard.h"

#include <QEvent>
#include <QWidget>

WheelGuard::WheelGuard(QWidget* guarded)
    : QObject(guarded)
{
    guarded->installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return false;
    event->ignore();
    return true;
}
