// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databaseprogram.h"
#include "support/applicationicon.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    setApplicationIcon();
    return DatabaseProgram::run();
}
