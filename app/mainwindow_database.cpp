// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compiling species files into a database.

#include "app/mainwindow.h"
#include "database/createdatabase.h"
#include "database/databaseassembly.h"
#include "species/speciesfile.h"
#include "support/jsonfile.h"
#include "support/messages.h"

#include <QApplication>
#include <QDate>
#include <QScopeGuard>

void MainWindow::createSpeciesDatabase()
{
    databaseCreated = false;
    if (createDatabase == nullptr)
        createDatabase = new CreateDatabase(this);
    if (createDatabase->exec() != QDialog::Accepted)
        return;

    databaseCreated =
        writeDatabase(this, createDatabase->files(), createDatabase->databaseFileName(),
                      createDatabase->databaseVersion(), createDatabase->dataRelease(),
                      createDatabase->title(), createDatabase->isCompact());
    if (databaseCreated) {
        Messages::information(this, tr("Success"), tr("Species database created successfully."));
    } else {
        Messages::warning(this, tr("Error"), tr("Failed to create species database."));
    }
}

bool MainWindow::isDatabaseCreated() const
{
    return databaseCreated;
}

bool MainWindow::writeDatabase(QWidget* messageParent, const QStringList& speciesFiles,
                               const QString& databaseFile, const QString& version,
                               const QString& release, const QString& title, bool compact)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    auto restoreCursor = qScopeGuard([] { QApplication::restoreOverrideCursor(); });

    QList<QJsonObject> entries;
    for (const QString& path : speciesFiles) {
        const JsonFile::ReadResult file = JsonFile::read(path);
        if (file.opened && SpeciesFile::isSpecies(file.object)) {
            entries.append(file.object);
            continue;
        }
        QApplication::restoreOverrideCursor();
        restoreCursor.dismiss();
        if (file.opened)
            Messages::critical(messageParent, tr("Error"),
                               tr("Invalid species type in file: ") + path);
        else
            Messages::warning(messageParent, tr("Error"), tr("Could not open file: ") + path);
        return false;
    }

    const DatabaseAssembly::Header header{version, release, title, QDate::currentDate()};
    const QJsonObject database = DatabaseAssembly::assemble(header, entries);
    return JsonFile::write(databaseFile, database,
                           compact ? QJsonDocument::Compact : QJsonDocument::Indented) !=
           JsonFile::WriteResult::NotOpened;
}
