// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/databasecommand.h"

#include "app/mainwindow.h"
#include "database/createdatabase.h"
#include "support/messages.h"

#include <QCoreApplication>

#include <cstdlib>

bool compileDatabase(QWidget* messageParent, const CreateDatabase& choices)
{
    const bool written = MainWindow::writeDatabase(
        messageParent, choices.files(), choices.databaseFileName(), choices.databaseVersion(),
        choices.dataRelease(), choices.title(), choices.isCompact());
    if (written) {
        Messages::information(messageParent, MainWindow::tr("Success"),
                              MainWindow::tr("Species database created successfully."));
    } else {
        Messages::warning(messageParent, MainWindow::tr("Error"),
                          MainWindow::tr("Failed to create species database."));
    }
    return written;
}

int runDatabaseProgram()
{
    CreateDatabase dialog;
    Messages::keepAllPlain(&dialog);
    // The dialogs run event loops of their own. The application's is not started, so that no
    // closing window, each being the last one visible, quits it.
    while (dialog.exec() == QDialog::Accepted) {
        if (compileDatabase(&dialog, dialog))
            return EXIT_SUCCESS;
    }
    return EXIT_FAILURE;
}
