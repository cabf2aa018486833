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
#include "support/longwork.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "widgets/entrystatus.h"

#include <QClipboard>
#include <QFileInfo>
#include <QJsonDocument>
#include <QPointer>

#include <memory>

using namespace Qt::StringLiterals;

void MainWindow::addSpectrumWindow(SpectrumWindow* window)
{
    spectra->add(window);
    window->setFocus();
    setModified(true);
}

bool MainWindow::addSpectrum(const QJsonObject& dataset, LongWork& work)
{
    auto windows = SpectrumArea::prepare({dataset}, this, work);
    if (!windows)
        return false;
    addSpectrumWindow(windows->front().release());
    return true;
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
    if (LongWork::isUnderWay())
        return;
    const WaitCursor waiting;
    const QString text = QGuiApplication::clipboard()->text();
    auto pasting = std::make_unique<LongWork>(this, tr("Pasting a spectrum"));
    const auto document = pasting->aside([text] { return QJsonDocument::fromJson(text.toUtf8()); });
    if (!document)
        return;
    if (document->isObject() && SpectrumContainer::isSpectrum(document->object())) {
        addSpectrum(document->object(), *pasting);
        return;
    }
    pasting.reset();
    if (!document->isObject())
        Messages::warning(this, tr("Error"), tr("Clipboard does not contain a valid spectrum."));
    else
        Messages::critical(this, tr("Error"), tr("Format error, cannot paste."));
}

void MainWindow::openSpectrum()
{
    // A cancelled dialog answers with an empty path, which goes on to the message on purpose.
    const QString path = JsonFileDialog::nameToOpen(this, tr("Open Spectrum JSON File"));
    const WaitCursor waiting;
    auto opening =
        std::make_unique<LongWork>(this, tr("Opening %1").arg(QFileInfo(path).fileName()));
    const auto file = opening->aside([path] { return JsonFile::read(path); });
    if (!file)
        return;
    if (file->opened && SpectrumContainer::isSpectrum(file->object)) {
        if (addSpectrum(file->object, *opening))
            LastOpenFolder::rememberFolderOf(path);
        return;
    }
    opening.reset();
    if (!file->opened)
        Messages::warning(this, tr("Error"), tr("Could not open file for reading"));
    else
        Messages::critical(this, tr("Error"), tr("Spectrum not found in JSON file. Load aborted."));
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
