// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/formdock.h"

#include "widgets/darktext.h"

#include <QDockWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QMainWindow>

#include <algorithm>

FormDock::FormDock(QMainWindow* mainWindow, QDockWidget* formDock)
    : QObject(mainWindow)
    , window(mainWindow)
    , dock(formDock)
    , windowWidth(mainWindow->width())
    , widestDock(mainWindow->width() / 3)
    , widestPart(1.0 / 3)
{
    setDarkText(*dock);
    const QList<QWidget*> formWidgets = dock->findChildren<QWidget*>();
    for (QWidget* widget : formWidgets)
        setDarkText(*widget);
    window->installEventFilter(this);
    dock->installEventFilter(this);
    fitWidth();
}

bool FormDock::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == dock && event->type() == QEvent::Close) {
        // Later: the desktop's window of the dock is still needed to close it. The close is not
        // refused, because that would stop a desktop that ends all programs. The dock itself never
        // hears of it: since Qt 6.8 it would refuse.
        QMetaObject::invokeMethod(this, &FormDock::dockAgain, Qt::QueuedConnection);
        event->accept();
        return true;
    }
    if (watched == dock && event->type() == QEvent::Resize) {
        noteWidth();
    } else if (watched == window && event->type() == QEvent::Resize) {
        fitWidth();
    }
    return QObject::eventFilter(watched, event);
}

void FormDock::dockAgain()
{
    dock->setFloating(false);
    dock->show();
}

void FormDock::fitWidth()
{
    windowWidth = window->width();
    const int width = std::min(widestDock, static_cast<int>(widestPart * windowWidth));
    window->resizeDocks({dock}, {width}, Qt::Horizontal);
}

void FormDock::noteWidth()
{
    // Only a drag of the edge between form and spectra; not what the window's own size makes of it.
    const bool isDragged = QGuiApplication::mouseButtons().testFlag(Qt::LeftButton);
    if (!isDragged || dock->isFloating() || window->width() != windowWidth)
        return;
    widestDock = dock->width();
    widestPart = static_cast<double>(widestDock) / windowWidth;
}
