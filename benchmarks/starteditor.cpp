// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Starts the editor as its main() does, and ends when it is painted.

#include "app/mainwindow.h"
#include "benchmarks/firstpaint.h"
#include "support/applicationicon.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    setApplicationIcon();

    MainWindow window;
    return showUntilPainted(window);
}
