// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Spectrum windows, spectrum files and the exchange of spectra through the clipboard.

#include "app/mainwindow.h"
#include "spectrum/spectrumarea.h"
#include "spectrum/spectrumcontainer.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "support/jsonfile.h"
#include "support/jsonfiledialog.h"
#include "support/lastopenfolder.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "widgets/entrystatus.h"

#include <QClipboard>
#include <QJsonDocument>
#include <QPointer>

using namespace Qt::StringLiterals;

void MainWindow::addSpectrumWindow(SpectrumWindow* window)
{
    spectra->add(window);
    window->setFocus();
    setModified(true);
}

void MainWindow::createNewSpectrumWindow()
{
    addSpectrumWindow(new SpectrumWindow(this));
}

void MainWindow::deleteCurrentSpectrum()
{
    if (spectra->closeActive())
        setModified(true);
}

void MainWindow::copySpectrum()
{
    const SpectrumWindow* spectrum = spectra->active();
    if (spectrum == nullptr) {
        Messages::warning(this, tr("Error"), tr("No spectrum window is selected."));
        return;
    }
    const WaitCursor waiting;
    const QJsonDocument document(SpectrumContainer::wrap(spectrum->model()->toJson()));
    QGuiApplication::clipboard()->setText(
        QString::fromUtf8(document.toJson(QJsonDocument::Compact)));
}

void MainWindow::pasteSpectrum()
{
    const WaitCursor waiting;
    const QByteArray text = QGuiApplication::clipboard()->text().toUtf8();
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject()) {
        Messages::warning(this, tr("Error"), tr("Clipboard does not contain a valid spectrum."));
        return;
    }
    if (!SpectrumContainer::isSpectrum(document.object())) {
        Messages::critical(this, tr("Error"), tr("Format error, cannot paste."));
        return;
    }
    addSpectrumWindow(new SpectrumWindow(document.object(), this));
}

void MainWindow::openSpectrum()
{
    // A cancelled dialog answers with an empty path, which goes on to the message on purpose.
    const QString path = JsonFileDialog::nameToOpen(this, tr("Open Spectrum JSON File"));
    const WaitCursor waiting;
    const JsonFile::ReadResult file = JsonFile::read(path);
    if (!file.opened) {
        Messages::warning(this, tr("Error"), tr("Could not open file for reading"));
        return;
    }
    if (!SpectrumContainer::isSpectrum(file.object)) {
        Messages::critical(this, tr("Error"), tr("Spectrum not found in JSON file. Load aborted."));
        return;
    }
    addSpectrumWindow(new SpectrumWindow(file.object, this));
    LastOpenFolder::rememberFolderOf(path);
}

void MainWindow::saveSpectrum()
{
    const QPointer<SpectrumWindow> spectrum = spectra->active();
    if (spectrum.isNull()) {
        Messages::warning(this, tr("Error"), tr("No active spectrum window to save."));
        return;
    }
    const QString path =
        JsonFileDialog::nameToSave(this, u"Save Spectrum"_s, LastOpenFolder::path());
    if (path.isEmpty() || spectrum.isNull())
        return;
    const WaitCursor waiting;
    const QJsonObject content = SpectrumContainer::wrap(spectrum->model()->toJson());
    const JsonFile::WriteResult result = JsonFile::write(path, content, QJsonDocument::Indented);
    status->setSaved(tr("Spectrum"), path, result);
    if (result == JsonFile::WriteResult::NotOpened) {
        Messages::warning(this, tr("Error"), tr("Could not open file for writing"));
        return;
    }
    LastOpenFolder::rememberFolderOf(path);
}
