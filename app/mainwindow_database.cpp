// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compiling species files into a database.

#include "app/mainwindow.h"
#include "database/createdatabase.h"
#include "database/databaseassembly.h"
#include "species/speciesfile.h"
#include "support/jsonfile.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "support/wholefile.h"

#include <QDate>

#include <optional>
#include <utility>

namespace {

bool isUsable(const JsonFile::ReadResult& file)
{
    return file.opened && SpeciesFile::isSpecies(file.object);
}

/// The files are compiled in another order than that of the list, which is the person's.
void showFirstUnusable(QWidget* messageParent, const QStringList& speciesFiles)
{
    for (const QString& path : speciesFiles) {
        const JsonFile::ReadResult file = whileWaiting([&path] { return JsonFile::read(path); });
        if (isUsable(file))
            continue;
        if (file.opened) {
            Messages::critical(messageParent, MainWindow::tr("Error"),
                               MainWindow::tr("Invalid species type in file: ") + path);
        } else {
            Messages::warning(messageParent, MainWindow::tr("Error"),
                              MainWindow::tr("Could not open file: ") + path);
        }
        return;
    }
}

} // namespace

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
    const QJsonDocument::JsonFormat format =
        compact ? QJsonDocument::Compact : QJsonDocument::Indented;
    std::optional<WaitCursor> waiting(std::in_place);

    WholeFile database(databaseFile);
    database.write(DatabaseAssembly::beginning(format));
    const QList<int> order = DatabaseAssembly::entryOrder(static_cast<int>(speciesFiles.size()));
    for (const int number : order) {
        const JsonFile::ReadResult file = JsonFile::read(speciesFiles.at(number - 1));
        if (!isUsable(file)) {
            waiting.reset();
            showFirstUnusable(messageParent, speciesFiles);
            return false;
        }
        database.write(DatabaseAssembly::entry(number, file.object, format));
    }
    const DatabaseAssembly::Header header{version, release, title, QDate::currentDate()};
    database.write(DatabaseAssembly::end(header, format));
    return database.commit() != WholeFile::Result::NotOpened;
}
