// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The life of the species document: title, save question, new, open, save, drop and close.

#include "app/droppedfile.h"
#include "app/mainwindow.h"
#include "species/speciesfile.h"
#include "species/speciesmodel.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "support/jsonfile.h"
#include "support/lastopenfolder.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "ui_mainwindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDataWidgetMapper>
#include <QFileDialog>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMessageBox>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Accepts a drag of an entry, as a copy if that is offered, whatever is proposed.
void acceptDrag(QDragMoveEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

/// Takes a dropped entry. Never as a move, after which the file manager would delete the file that
/// was just opened; where nothing else is offered the answer is that nothing was done to the file.
void acceptDrop(QDropEvent* event)
{
    const bool canCopy = event->possibleActions().testFlag(Qt::CopyAction);
    event->setDropAction(canCopy ? Qt::CopyAction : Qt::IgnoreAction);
    event->accept();
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

    QMessageBox box;
    box.setText(tr("The species has been modified."));
    box.setInformativeText(tr("Do you want to save your changes?"));
    box.setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Save);
    const int answer = box.exec();
    // Saving goes on even when the save-as dialog was cancelled or the write failed: on purpose.
    if (answer == QMessageBox::Save)
        saveSpecies();
    return answer == QMessageBox::Save || answer == QMessageBox::Discard;
}

void MainWindow::cleanUp()
{
    if (!askToSave())
        return;

    const WaitCursor waiting;
    ui->mdiArea->closeAllSubWindows();
    currentFile.clear();
    for (int column = 0; column < SpeciesModel::ColumnCount; ++column)
        speciesModel->setData(speciesModel->index(0, column), QVariant(), Qt::EditRole);
    mapper->toFirst();
    currentFile.clear();
    setModified(false);
}

void MainWindow::openSpecies()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Species JSON File"),
                                                      LastOpenFolder::path(), jsonFileFilter());
    if (!path.isEmpty())
        loadSpecies(path);
}

bool MainWindow::loadSpecies(const QString& path)
{
    if (!askToSave())
        return false;
    if (!QFileInfo::exists(path)) {
        Messages::warning(this, tr("File Not Found"), tr("The file %1 does not exist.").arg(path));
        return false;
    }
    const auto file = whileWaiting([&path] { return SpeciesFile::read(path); });
    if (!file) {
        Messages::warning(this, tr("Invalid Species File"),
                          tr("The file %1 is not a valid species file.").arg(path));
        return false;
    }
    replaceDocument(path, *file);
    return true;
}

void MainWindow::replaceDocument(const QString& path, const QJsonObject& file)
{
    const WaitCursor waiting;
    isModified = false;
    cleanUp();
    showSpecies(file);
    currentFile = path;
    setModified(false);
    LastOpenFolder::rememberFolderOf(path);
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
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save Species JSON File"), start, jsonFileFilter());
    if (path.isEmpty())
        return;
    currentFile = path;
    LastOpenFolder::rememberFolderOf(path);
    saveSpeciesFile();
}

bool MainWindow::loadSpeciesFile(const QString& path)
{
    const JsonFile::ReadResult file = whileWaiting([&path] { return JsonFile::read(path); });
    if (!file.opened) {
        Messages::warning(this, tr("Error"), tr("Could not open file for reading"));
        return false;
    }
    if (!SpeciesFile::isSpecies(file.object)) {
        Messages::critical(this, tr("Error"), tr("Species not found in JSON file. Load aborted."));
        return false;
    }
    showSpecies(file.object);
    return true;
}

void MainWindow::showSpecies(const QJsonObject& file)
{
    const WaitCursor waiting;
    speciesModel->fromJson(SpeciesFile::species(file));
    const QList<QJsonObject> datasets = SpeciesFile::datasets(file);
    ui->mdiArea->setUpdatesEnabled(false);
    for (const QJsonObject& dataset : datasets) {
        addSpectrumWindow(new SpectrumWindow(dataset, this));
        // The first one fills the area; all others need not do so only to be covered by the next.
        ui->mdiArea->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    }
    ui->mdiArea->setOption(QMdiArea::DontMaximizeSubWindowOnActivation, false);

    const QList<QMdiSubWindow*> subWindows = ui->mdiArea->subWindowList(QMdiArea::CreationOrder);
    if (!subWindows.isEmpty())
        ui->mdiArea->setActiveSubWindow(subWindows.constFirst());
    // What the windows have put off until now would each paint the first one once more.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    if (SpectrumWindow* spectrum = activeSpectrum())
        spectrum->fitChart();
    ui->mdiArea->setUpdatesEnabled(true);
    if (SpectrumWindow* spectrum = activeSpectrum())
        spectrum->setFocus();
}

void MainWindow::saveSpeciesFile()
{
    std::optional<WaitCursor> waiting(std::in_place);
    if (writeSpeciesFile() == JsonFile::WriteResult::NotOpened) {
        waiting.reset();
        Messages::warning(this, tr("Error"), tr("Could not open file for writing."));
        return;
    }
    setModified(false);
}

JsonFile::WriteResult MainWindow::writeSpeciesFile() const
{
    QList<QJsonObject> datasets;
    const QList<QMdiSubWindow*> subWindows = ui->mdiArea->subWindowList(QMdiArea::CreationOrder);
    for (const QMdiSubWindow* subWindow : subWindows) {
        if (const auto* spectrum = qobject_cast<SpectrumWindow*>(subWindow->widget()))
            datasets.append(spectrum->model()->toJson());
    }

    const QJsonObject content = SpeciesFile::assemble(speciesModel->toJson(), datasets);
    return JsonFile::write(currentFile, content, QJsonDocument::Indented);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!droppedJsonFile(event->mimeData()).isEmpty())
        acceptDrag(event);
}

void MainWindow::dragMoveEvent(QDragMoveEvent* event)
{
    if (!droppedJsonFile(event->mimeData()).isEmpty())
        acceptDrag(event);
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QString path = droppedJsonFile(event->mimeData());
    if (path.isEmpty())
        return;
    acceptDrop(event);
    if (!askToSave())
        return;

    // Unlike opening, a drop goes ahead without looking at the file first.
    isModified = false;
    cleanUp();
    currentFile = loadSpeciesFile(path) ? path : QString();
    setModified(false);
    LastOpenFolder::rememberFolderOf(path);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(askToSave());
}
