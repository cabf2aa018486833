// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/entrydrops.h"

#include "support/droppedfile.h"
#include "widgets/windowparts.h"

#include <QApplication>
#include <QDropEvent>
#include <QWidget>

void acceptEntryDrag(QDragMoveEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void acceptEntryDrop(QDropEvent* event)
{
    const bool canCopy = event->possibleActions().testFlag(Qt::CopyAction);
    event->setDropAction(canCopy ? Qt::CopyAction : Qt::IgnoreAction);
    event->accept();
}

EntryDrops::EntryDrops(QWidget* receivingWindow)
    : QObject(receivingWindow)
    , window(receivingWindow)
{
    QApplication::instance()->installEventFilter(this);
}

bool EntryDrops::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        break;
    default:
        return false;
    }
    const bool isInside = isInsideWindow(watched, *window);
    const auto& drop = *static_cast<QDropEvent*>(event);
    if ((watched != window && !isInside) || droppedJsonFile(drop.mimeData()).isEmpty())
        return false;
    if (event->type() == QEvent::DragMove) {
        acceptEntryDrag(static_cast<QDragMoveEvent*>(event));
        return true;
    }
    if (isInside)
        static_cast<QObject*>(window)->event(event);
    return isInside;
}
