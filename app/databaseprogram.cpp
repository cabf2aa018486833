// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/databaseprogram.h"

#include "app/mainwindow.h"

#include <cstdlib>

int runDatabaseProgram()
{
    MainWindow window;
    // The dialogs run event loops of their own. The application's is not started, so that no
    // closing window, each being the last one visible, quits it.
    const bool invoked = QMetaObject::invokeMethod(&window, "createSpeciesDatabase");
    return invoked && window.isDatabaseCreated() ? EXIT_SUCCESS : EXIT_FAILURE;
}
