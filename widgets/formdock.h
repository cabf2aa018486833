// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QDockWidget;
class QMainWindow;

/// Keeps the dock with the species form, whose light background it gives black text, in its window.
/// A floating dock that is closed (by a key of the desktop, or by a button that the desktop draws)
/// goes back into the window instead of vanishing. A docked one takes a third of a small window and
/// no more of a large one than it has at first, until the user moves its edge.
class FormDock : public QObject
{
    Q_OBJECT

public:
    /// Owned by @p window, in which @p dock has its place.
    FormDock(QMainWindow* window, QDockWidget* dock);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dockAgain();
    void fitWidth();
    void noteWidth();

    QMainWindow* window;
    QDockWidget* dock;
    int windowWidth;   ///< The one that the dock's width has been fitted to.
    int widestDock;    ///< In pixels.
    double widestPart; ///< Of the window's width.
};
