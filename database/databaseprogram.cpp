// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databaseprogram.h"

#include "database/createdatabase.h"
#include "support/messages.h"
#include "support/waitcursor.h"

#include <cstdlib>

namespace DatabaseProgram {

SaveResult write(QWidget* messageParent, const QString& target, const DatabaseFile::Header& header,
                 const QStringList& sources, QJsonDocument::JsonFormat format)
{
    const WaitCursor waiting;
    const DatabaseFile::Result result = DatabaseFile::write(target, header, sources, format);
    if (result.outcome == DatabaseFile::Outcome::SourceNotOpened) {
        Messages::warning(messageParent, CreateDatabase::tr("Error"),
                          CreateDatabase::tr("Could not open file: ") + result.source);
    } else if (result.outcome == DatabaseFile::Outcome::SourceIsNoSpecies) {
        Messages::critical(messageParent, CreateDatabase::tr("Error"),
                           CreateDatabase::tr("Invalid species type in file: ") + result.source);
    }
    return result.saved;
}

SaveResult write(QWidget* messageParent, const CreateDatabase& choices)
{
    return write(
        messageParent, choices.databaseFileName(),
        {choices.databaseVersion(), choices.dataRelease(), choices.title(), QDate::currentDate()},
        choices.files(), choices.isCompact() ? QJsonDocument::Compact : QJsonDocument::Indented);
}

void showWhetherWritten(QWidget* messageParent, SaveResult result)
{
    if (result != SaveResult::NotOpened) {
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
        const SaveResult result = write(&dialog, dialog);
        showWhetherWritten(&dialog, result);
        if (result != SaveResult::NotOpened)
            return EXIT_SUCCESS;
    }
    return EXIT_FAILURE;
}

} // namespace DatabaseProgram
