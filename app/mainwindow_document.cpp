// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The life of the species document: title, save question, new, open, save, drop and close.

#include "app/mainwindow.h"
#include "species/speciesfile.h"
#include "species/speciesmodel.h"
#include "spectrum/spectrumarea.h"
#include "spectrum/spectrumwindow.h"
#include "support/droppedfile.h"
#include "support/jsonfile.h"
#include "support/jsonfiledialog.h"
#include "support/lastopenfolder.h"
#include "support/longwork.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "widgets/entrydrops.h"
#include "widgets/entrystatus.h"
#include "widgets/leftfield.h"

#include <QCloseEvent>
#include <QDataWidgetMapper>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString openingText(const QString& path)
{
    return MainWindow::tr("Opening %1").arg(QFileInfo(path).fileName());
}

} // namespace

void MainWindow::setModified()
{
    setModified(true);
}

void MainWindow::setModified(bool modified)
{
    isModified = modified;
    const QString name =
        currentFile.isEmpty() ? tr("(untitled)") : QFileInfo(currentFile).fileName();
    const QString mark = modified ? u" *"_s : QString();
    setWindowTitle("KORVELA Entry Edit - "_L1 + name + mark);
}

bool MainWindow::askToSave()
{
    if (!isModified)
        return true;

    const SuspendedWaitCursor suspended;
    const auto answer = Messages::question(
        tr("KORVELA Entry Edit"), tr("The species has been modified."),
        tr("Do you want to save your changes?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    // Saving goes on even when the save-as dialog was cancelled or the write failed: on purpose.
    if (answer == QMessageBox::Save)
        saveSpecies();
    return answer == QMessageBox::Save || answer == QMessageBox::Discard;
}

void MainWindow::cleanUp()
{
    const WaitCursor waiting;
    if (!LongWork::isUnderWay() && askToSave())
        clear();
}

void MainWindow::clear()
{
    spectra->closeAll();
    currentFile.clear();
    for (int column = 0; column < SpeciesModel::ColumnCount; ++column)
        speciesModel->setValue(column, QVariant());
    mapper->toFirst();
    setModified(false);
}

void MainWindow::openSpecies()
{
    const QString path = JsonFileDialog::nameToOpen(this, tr("Open Species JSON File"));
    if (!path.isEmpty())
        openEntry(path);
}

bool MainWindow::openEntry(const QString& path)
{
    const WaitCursor waiting;
    if (LongWork::isUnderWay() || !askToSave())
        return false;
    if (!QFileInfo::exists(path)) {
        Messages::warning(this, tr("File Not Found"), tr("The file %1 does not exist.").arg(path));
        return false;
    }
    {
        LongWork opening(this, openingText(path));
        const auto file = opening.aside([path] { return JsonFile::read(path); });
        if (!file)
            return false;
        if (SpeciesFile::isSpeciesFile(file->object))
            return replaceDocument(path, file->object, opening);
    }
    Messages::warning(this, tr("Invalid Species File"),
                      tr("The file %1 is not a valid species file.").arg(path));
    return false;
}

bool MainWindow::replaceDocument(const QString& path, const QJsonObject& content, LongWork& opening)
{
    auto windows = SpectrumArea::prepare(SpeciesFile::datasets(content), this, opening);
    if (!windows)
        return false;
    clear();
    speciesModel->fromJson(SpeciesFile::species(content));
    spectra->show(std::move(*windows));
    currentFile = path;
    setModified(false);
    LastOpenFolder::rememberFolderOf(path);
    return true;
}

void MainWindow::saveSpecies()
{
    if (currentFile.isEmpty())
        saveSpeciesAs();
    else
        saveSpeciesFile();
}

void MainWindow::saveSpeciesAs()
{
    const QString start = currentFile.isEmpty() ? LastOpenFolder::path() : currentFile;
    const QString path = JsonFileDialog::nameToSave(this, tr("Save Species JSON File"), start);
    if (path.isEmpty())
        return;
    currentFile = path;
    LastOpenFolder::rememberFolderOf(path);
    saveSpeciesFile();
}

void MainWindow::saveSpeciesFile()
{
    const WaitCursor waiting;
    const QJsonObject content = SpeciesFile::assemble(speciesModel->toJson(), spectra->records());
    const JsonFile::WriteResult result =
        JsonFile::write(currentFile, content, QJsonDocument::Indented);
    status->setSaved(tr("Entry"), currentFile, result);
    if (result == JsonFile::WriteResult::NotOpened) {
        Messages::warning(this, tr("Error"), tr("Could not open file for writing."));
        return;
    }
    setModified(false);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedJsonFile(event->mimeData()).isEmpty() && !LongWork::isUnderWay())
        acceptEntryDrag(event);
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QString path = droppedJsonFile(event->mimeData());
    if (path.isEmpty() || LongWork::isUnderWay())
        return;
    acceptEntryDrop(event);
    const LeftField left(*this);
    const WaitCursor waiting;
    if (askToSave())
        takeDrop(path);
}

void MainWindow::takeDrop(const QString& path)
{
    JsonFile::ReadResult file;
    {
        LongWork opening(this, openingText(path));
        auto read = opening.aside([path] { return JsonFile::read(path); });
        if (!read)
            return;
        file = std::move(*read);
        if (SpeciesFile::isSpeciesFile(file.object)) {
            replaceDocument(path, file.object, opening);
            return;
        }
    }
    // Unlike opening, a drop goes ahead whatever the file is.
    clear();
    if (!file.opened)
        Messages::warning(this, tr("Error"), tr("Could not open file for reading"));
    else
        Messages::critical(this, tr("Error"), tr("Species not found in JSON file. Load aborted."));
    setModified(false);
    LastOpenFolder::rememberFolderOf(path);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    const LeftField left(*this);
    event->setAccepted(!LongWork::isUnderWay() && askToSave());
}
