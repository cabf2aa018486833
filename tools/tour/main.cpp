// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/tour/tour.h"

#include <QApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString output = arguments.size() > 1
                               ? arguments.at(1)
                               : QDir::temp().filePath(QStringLiteral("korvela-tour"));

    Tour tour(QDir(QStringLiteral(KORVELA_EXAMPLES_FOLDER)), QDir(output));
    const bool succeeded = tour.run();
    QTextStream(stdout) << tour.account().join(QLatin1Char('\n')) << Qt::endl;
    return succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}
