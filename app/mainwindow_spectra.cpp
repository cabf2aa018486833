// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Spectrum windows, spectrum files and the exchange of spectra through the clipboard.

#include "app/mainwindow.h"
#include "spectrum/spectrumcontainer.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "support/jsonfile.h"
#include "support/lastopenfolder.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "ui_mainwindow.h"

#include <QClipboard>
#include <QFileDialog>
#include <QJsonDocument>
#include <QMdiSubWindow>
#include <QPointer>

using namespace Qt::StringLiterals;

void MainWindow::addSpectrumWindow(SpectrumWindow* window)
{
    QMdiSubWindow* subWindow = ui->mdiArea->addSubWindow(window);
    subWindow->setAttribute(Qt::WA_DeleteOnClose);
    // As a stop of the Tab key it would catch every Shift+Tab of the form.
    subWindow->setFocusPolicy(Qt::ClickFocus);
    window->show();
    setModified(true);
}

void MainWindow::createNewSpectrumWindow()
{
    addSpectrumWindow(new SpectrumWindow(this));
}

void MainWindow::deleteCurrentSpectrum()
{
    QMdiSubWindow* active = ui->mdiArea->activeSubWindow();
    if (active == nullptr)
        return;
    active->close();
    setModified(true);
}

SpectrumWindow* MainWindow::activeSpectrum() const
{
    const QMdiSubWindow* active = ui->mdiArea->activeSubWindow();
    return active == nullptr ? nullptr : qobject_cast<SpectrumWindow*>(active->widget());
}

void MainWindow::copySpectrum()
{
    const SpectrumWindow* spectrum = activeSpectrum();
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
    const QByteArray text = QGuiApplication::clipboard()->text().toUtf8();
    const auto document = whileWaiting([&text] { return QJsonDocument::fromJson(text); });
    if (!document.isObject()) {
        Messages::warning(this, tr("Error"), tr("Clipboard does not contain a valid spectrum."));
        return;
    }
    if (!SpectrumContainer::isSpectrum(document.object())) {
        Messages::critical(this, tr("Error"), tr("Format error, cannot paste."));
        return;
    }
    const WaitCursor waiting;
    addSpectrumWindow(new SpectrumWindow(document.object(), this));
}

void MainWindow::openSpectrum()
{
    // A cancelled dialog answers with an empty path, which goes on to the message on purpose.
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Spectrum JSON File"),
                                                      LastOpenFolder::path(), jsonFileFilter());
    const JsonFile::ReadResult file = whileWaiting([&path] { return JsonFile::read(path); });
    if (!file.opened) {
        Messages::warning(this, tr("Error"), tr("Could not open file for reading"));
        return;
    }
    if (!SpectrumContainer::isSpectrum(file.object)) {
        Messages::critical(this, tr("Error"), tr("Spectrum not found in JSON file. Load aborted."));
        return;
    }
    const WaitCursor waiting;
    addSpectrumWindow(new SpectrumWindow(file.object, this));
    LastOpenFolder::rememberFolderOf(path);
}

void MainWindow::saveSpectrum()
{
    const QPointer<SpectrumWindow> spectrum = activeSpectrum();
    if (spectrum.isNull()) {
        Messages::warning(this, tr("Error"), tr("No active spectrum window to save."));
        return;
    }
    const QString path = QFileDialog::getSaveFileName(this, u"Save Spectrum"_s,
                                                      LastOpenFolder::path(), jsonFileFilter());
    if (path.isEmpty() || spectrum.isNull())
        return;
    const auto written = whileWaiting([&spectrum, &path] {
        return JsonFile::write(path, SpectrumContainer::wrap(spectrum->model()->toJson()),
                               QJsonDocument::Indented);
    });
    if (written == JsonFile::WriteResult::NotOpened) {
        Messages::warning(this, tr("Error"), tr("Could not open file for writing"));
        return;
    }
    LastOpenFolder::rememberFolderOf(path);
}
