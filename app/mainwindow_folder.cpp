// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Stepping through the species files of a folder.

#include "app/mainwindow.h"
#include "species/fileorder.h"
#include "species/speciesfile.h"
#include "support/lastopenfolder.h"
#include "support/messages.h"
#include "support/waitcursor.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QJsonObject>

using namespace Qt::StringLiterals;

void MainWindow::selectSpeciesFolder()
{
    const QString start =
        currentFile.isEmpty() ? LastOpenFolder::path() : QFileInfo(currentFile).absolutePath();
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Select Folder"), start,
                                                             QFileDialog::ShowDirsOnly);
    if (!folder.isEmpty())
        step(folder, Direction::First);
}

void MainWindow::loadPreviousSpeciesFile()
{
    if (currentFile.isEmpty())
        selectSpeciesFolder();
    else
        step(currentFile, Direction::Previous);
}

void MainWindow::loadNextSpeciesFile()
{
    if (currentFile.isEmpty())
        selectSpeciesFolder();
    else
        step(currentFile, Direction::Next);
}

bool MainWindow::step(const QString& path, Direction direction)
{
    const QFileInfo start(path);
    const QDir folder(start.isDir() ? path : start.absolutePath());
    const QStringList fileNames = inSteppingOrder(folder.entryList({u"*.json"_s}, QDir::Files));
    if (fileNames.isEmpty()) {
        Messages::information(this, tr("No JSON Files"),
                              tr("No JSON files found in the directory."));
        return false;
    }

    if (start.isDir()) {
        if (direction == Direction::First)
            return loadFirstSpeciesFile(folder, fileNames);
        Messages::information(this, tr("No Current File"),
                              tr("No current file loaded to step from."));
        return false;
    }

    if (!fileNames.contains(start.fileName())) {
        Messages::warning(this, tr("Error"), tr("Current file is not in the directory."));
        return false;
    }
    return direction == Direction::First
               ? loadFirstSpeciesFile(folder, fileNames)
               : loadNeighbour(folder, fileNames, start.fileName(), direction);
}

bool MainWindow::stepTo(const QString& path, const QJsonObject& file)
{
    // A save question comes in between and may change the very file, which is then read again.
    if (isModified)
        return loadSpecies(path);
    replaceDocument(path, file);
    return true;
}

bool MainWindow::loadFirstSpeciesFile(const QDir& folder, const QStringList& fileNames)
{
    for (const QString& fileName : fileNames) {
        const QString path = folder.absoluteFilePath(fileName);
        if (const auto file = whileWaiting([&path] { return SpeciesFile::read(path); }))
            return stepTo(path, *file);
    }
    Messages::information(this, tr("No Species Files"),
                          tr("No species JSON files found in the directory."));
    return false;
}

bool MainWindow::loadNeighbour(const QDir& folder, const QStringList& fileNames,
                               const QString& current, Direction direction)
{
    const qsizetype count = fileNames.size();
    const qsizetype start = fileNames.indexOf(current);
    const auto neighbour = [count, direction](qsizetype index) {
        return (index + static_cast<int>(direction) + count) % count;
    };
    for (qsizetype index = neighbour(start); index != start; index = neighbour(index)) {
        const QString path = folder.absoluteFilePath(fileNames.at(index));
        if (const auto file = whileWaiting([&path] { return SpeciesFile::read(path); }))
            return stepTo(path, *file);
    }
    Messages::information(this, tr("No Other Species Files"),
                          tr("No other species JSON files found in the directory."));
    return false;
}
