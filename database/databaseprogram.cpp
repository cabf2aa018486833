// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databaseprogram.h"

#include "database/createdatabase.h"
#include "support/messages.h"
#include "support/waitcursor.h"

#include <cstdlib>

namespace DatabaseProgram {

bool write(QWidget* messageParent, const QString& target, const DatabaseFile::Header& header,
           const QStringList& sources, QJsonDocument::JsonFormat format)
{
    const WaitCursor waiting;
    const DatabaseFile::Result result = DatabaseFile::write(target, header, sources, format);
    switch (result.outcome) {
    case DatabaseFile::Outcome::Written:
        return true;
    case DatabaseFile::Outcome::SourceNotOpened:
        Messages::warning(messageParent, CreateDatabase::tr("Error"),
                          CreateDatabase::tr("Could not open file: ") + result.source);
        return false;
    case DatabaseFile::Outcome::SourceIsNoSpecies:
        Messages::critical(messageParent, CreateDatabase::tr("Error"),
                           CreateDatabase::tr("Invalid species type in file: ") + result.source);
        return false;
    case DatabaseFile::Outcome::TargetNotOpened:
        return false;
    }
    Q_UNREACHABLE();
    return false;
}

void showWhetherWritten(QWidget* messageParent, bool written)
{
    if (written) {
        Messages::information(messageParent, CreateDatabase::tr("Success"),
                              CreateDatabase::tr("Species database created successfully."));
    } else {
        Messages::warning(messageParent, CreateDatabase::tr("Error"),
                          CreateDatabase::tr("Failed to create species database."));
    }
}

int run()
{
    CreateDatabase dialog;
    Messages::keepAllPlain(&dialog);
    // The dialogs run event loops of their own. The application's is not started, so that no
    // closing window, each being the last one visible, quits it.
    while (dialog.exec() == QDialog::Accepted) {
        const bool written = write(
            &dialog, dialog.databaseFileName(),
            {dialog.databaseVersion(), dialog.dataRelease(), dialog.title(), QDate::currentDate()},
            dialog.files(), dialog.isCompact() ? QJsonDocument::Compact : QJsonDocument::Indented);
        showWhetherWritten(&dialog, written);
        if (written)
            return EXIT_SUCCESS;
    }
    return EXIT_FAILURE;
}

} // namespace DatabaseProgram
