// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The structure picture: display and context menu.

#include "app/mainwindow.h"
#include "species/speciesmodel.h"
#include "species/structurepicture.h"
#include "support/messages.h"
#include "ui_mainwindow.h"

#include <QClipboard>
#include <QMenu>

using namespace Qt::StringLiterals;

void MainWindow::showImage()
{
    const QImage image = speciesModel->image();
    if (image.isNull()) {
        ui->imageLabel->clear();
    } else {
        ui->imageLabel->setPixmap(StructurePicture::fitted(image, ui->imageLabel->size(),
                                                           ui->imageLabel->devicePixelRatioF()));
    }
}

void MainWindow::showImageMenu(const QPoint& position)
{
    QMenu menu(tr("Image Menu"), this);
    const QAction* clear = menu.addAction(u"Clear Image"_s);
    const QAction* paste = menu.addAction(u"Paste Image from Clipboard"_s);
    const QAction* chosen = menu.exec(ui->imageLabel->mapToGlobal(position));
    if (chosen == clear)
        clearImage();
    else if (chosen == paste)
        pasteImageFromClipboard();
}

void MainWindow::clearImage()
{
    speciesModel->setValue(SpeciesModel::StructureImage, QVariant());
}

void MainWindow::pasteImageFromClipboard()
{
    const QImage image = QGuiApplication::clipboard()->image();
    if (image.isNull() || !StructurePicture::isAdmitted(image)) {
        Messages::warning(this, tr("No Image"), tr("The clipboard does not contain an image."));
        return;
    }
    speciesModel->setValue(SpeciesModel::StructureImage, image);
}
