// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Starts a program that is nothing but an empty main window, and ends when it is painted.

#include "benchmarks/firstpaint.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QMainWindow window;
    return showUntilPainted(window);
}
