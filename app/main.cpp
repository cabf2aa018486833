// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    Q_INIT_RESOURCE(resources);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/korvela_entry.ico")));

    MainWindow window;
    window.show();
    return QApplication::exec();
}
