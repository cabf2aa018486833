// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compiling species files into a database.

#include "app/mainwindow.h"
#include "database/createdatabase.h"
#include "database/databaseprogram.h"
#include "widgets/entrystatus.h"

void MainWindow::createSpeciesDatabase()
{
    if (createDatabase == nullptr)
        createDatabase = new CreateDatabase(this);
    if (createDatabase->exec() != QDialog::Accepted)
        return;
    const SaveResult result = DatabaseProgram::write(this, *createDatabase);
    status->setSaved(tr("Database"), createDatabase->databaseFileName(), result);
    DatabaseProgram::showWhetherWritten(this, result);
}

bool MainWindow::writeDatabase(QWidget* messageParent, const QStringList& speciesFiles,
                               const QString& databaseFile, const QString& version,
                               const QString& release, const QString& title, bool compact)
{
    const auto format = compact ? QJsonDocument::Compact : QJsonDocument::Indented;
    const DatabaseFile::Header header{version, release, title, QDate::currentDate()};
    return DatabaseProgram::write(messageParent, databaseFile, header, speciesFiles, format) !=
           SaveResult::NotOpened;
}
