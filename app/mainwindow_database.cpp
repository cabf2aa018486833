// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compiling species files into a database.

#include "app/mainwindow.h"
#include "database/createdatabase.h"
#include "database/databaseprogram.h"

void MainWindow::createSpeciesDatabase()
{
    if (createDatabase == nullptr)
        createDatabase = new CreateDatabase(this);
    const CreateDatabase& choices = *createDatabase;
    if (createDatabase->exec() != QDialog::Accepted)
        return;
    const bool written =
        writeDatabase(this, choices.files(), choices.databaseFileName(), choices.databaseVersion(),
                      choices.dataRelease(), choices.title(), choices.isCompact());
    DatabaseProgram::showWhetherWritten(this, written);
}

bool MainWindow::writeDatabase(QWidget* messageParent, const QStringList& speciesFiles,
                               const QString& databaseFile, const QString& version,
                               const QString& release, const QString& title, bool compact)
{
    return DatabaseProgram::write(messageParent, databaseFile,
                                  {version, release, title, QDate::currentDate()}, speciesFiles,
                                  compact ? QJsonDocument::Compact : QJsonDocument::Indented);
}
