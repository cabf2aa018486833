// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compiling species files into a database.

#include "app/databasecommand.h"
#include "app/mainwindow.h"
#include "database/createdatabase.h"
#include "database/databasefile.h"
#include "support/messages.h"
#include "support/waitcursor.h"

void MainWindow::createSpeciesDatabase()
{
    if (createDatabase == nullptr)
        createDatabase = new CreateDatabase(this);
    if (createDatabase->exec() == QDialog::Accepted)
        compileDatabase(this, *createDatabase);
}

bool MainWindow::writeDatabase(QWidget* messageParent, const QStringList& speciesFiles,
                               const QString& databaseFile, const QString& version,
                               const QString& release, const QString& title, bool compact)
{
    const WaitCursor waiting;
    const DatabaseFile::Result result = DatabaseFile::write(
        databaseFile, {version, release, title, QDate::currentDate()}, speciesFiles,
        compact ? QJsonDocument::Compact : QJsonDocument::Indented);
    switch (result.outcome) {
    case DatabaseFile::Outcome::Written:
        return true;
    case DatabaseFile::Outcome::SourceNotOpened:
        Messages::warning(messageParent, tr("Error"), tr("Could not open file: ") + result.source);
        return false;
    case DatabaseFile::Outcome::SourceIsNoSpecies:
        Messages::critical(messageParent, tr("Error"),
                           tr("Invalid species type in file: ") + result.source);
        return false;
    case DatabaseFile::Outcome::TargetNotOpened:
        return false;
    }
    Q_UNREACHABLE();
    return false;
}
