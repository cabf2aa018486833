// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Stepping through the species files of a folder.

#include "app/mainwindow.h"
#include "species/speciesfolder.h"
#include "support/lastopenfolder.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "widgets/leftfield.h"

#include <QFileDialog>
#include <QFileInfo>

void MainWindow::selectSpeciesFolder()
{
    const QString start =
        currentFile.isEmpty() ? LastOpenFolder::path() : QFileInfo(currentFile).absolutePath();
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Select Folder"), start,
                                                             QFileDialog::ShowDirsOnly);
    if (!folder.isEmpty())
        step(folder, 0);
}

void MainWindow::loadPreviousSpeciesFile()
{
    if (currentFile.isEmpty())
        selectSpeciesFolder();
    else
        step(currentFile, -1);
}

void MainWindow::loadNextSpeciesFile()
{
    if (currentFile.isEmpty())
        selectSpeciesFolder();
    else
        step(currentFile, 1);
}

bool MainWindow::step(const QString& path, int direction)
{
    const LeftField left(*this);
    const WaitCursor waiting;
    const QFileInfo start(path);
    const SpeciesFolder folder(start.isDir() ? path : start.absolutePath());
    if (folder.isEmpty()) {
        Messages::information(this, tr("No JSON Files"),
                              tr("No JSON files found in the directory."));
        return false;
    }
    if (start.isDir() && direction != 0) {
        Messages::information(this, tr("No Current File"),
                              tr("No current file loaded to step from."));
        return false;
    }
    if (!start.isDir() && !folder.contains(start.fileName())) {
        Messages::warning(this, tr("Error"), tr("Current file is not in the directory."));
        return false;
    }

    const auto found =
        direction == 0 ? folder.first() : folder.neighbour(start.fileName(), direction);
    if (!found) {
        showNoSpeciesFileFound(direction);
        return false;
    }
    // A save question comes in between and may change the very file, which is then read again.
    if (isModified)
        return openEntry(found->path);
    replaceDocument(found->path, found->content);
    return true;
}

void MainWindow::showNoSpeciesFileFound(int direction)
{
    if (direction == 0) {
        Messages::information(this, tr("No Species Files"),
                              tr("No species JSON files found in the directory."));
    } else {
        Messages::information(this, tr("No Other Species Files"),
                              tr("No other species JSON files found in the directory."));
    }
}
