// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Stepping through the species files of a folder.

#include "app/mainwindow.h"
#include "species/speciesfolder.h"
#include "support/lastopenfolder.h"
#include "support/longwork.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "widgets/leftfield.h"

#include <QFileDialog>
#include <QFileInfo>

#include <memory>

namespace {

void showWhyNoStep(QWidget* parent, SpeciesFolder::Step::Outcome outcome)
{
    using Outcome = SpeciesFolder::Step::Outcome;
    const auto tell = [parent](const QString& title, const QString& text) {
        Messages::information(parent, title, text);
    };
    switch (outcome) {
    case Outcome::NoJsonFiles:
        tell(MainWindow::tr("No JSON Files"),
             MainWindow::tr("No JSON files found in the directory."));
        break;
    case Outcome::NoFileToStepFrom:
        tell(MainWindow::tr("No Current File"),
             MainWindow::tr("No current file loaded to step from."));
        break;
    case Outcome::NoSpeciesFiles:
        tell(MainWindow::tr("No Species Files"),
             MainWindow::tr("No species JSON files found in the directory."));
        break;
    case Outcome::NoOtherSpeciesFiles:
        tell(MainWindow::tr("No Other Species Files"),
             MainWindow::tr("No other species JSON files found in the directory."));
        break;
    case Outcome::FileNotInFolder:
        Messages::warning(parent, MainWindow::tr("Error"),
                          MainWindow::tr("Current file is not in the directory."));
        break;
    case Outcome::Found:
        break;
    }
}

} // namespace

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
    if (LongWork::isUnderWay())
        return false;
    const LeftField left(*this);
    const WaitCursor waiting;
    auto stepping = std::make_unique<LongWork>(this, tr("Opening the next entry of the folder"));
    const auto step =
        stepping->aside([path, direction] { return SpeciesFolder::step(path, direction); });
    if (!step)
        return false;
    if (step->outcome == SpeciesFolder::Step::Outcome::Found && !isModified)
        return replaceDocument(step->found.path, step->found.content, *stepping);
    stepping.reset(); // whatever comes now, it asks or tells something first
    // The save question may change the very file, which is then read again.
    if (step->outcome == SpeciesFolder::Step::Outcome::Found)
        return openEntry(step->found.path);
    showWhyNoStep(this, step->outcome);
    return false;
}
