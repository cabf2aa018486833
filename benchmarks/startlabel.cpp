// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Starts a main window with nothing but one label, and ends when it is painted. Unlike an empty
// window it needs a font; and it is linked to all libraries of the editor.

#include "benchmarks/firstpaint.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QLabel(u"Label"_s));
    return showUntilPainted(window);
}
