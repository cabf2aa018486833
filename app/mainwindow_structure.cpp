// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The structure image: download, display and context menu.

#include "app/mainwindow.h"
#include "species/casnumber.h"
#include "species/speciesmodel.h"
#include "species/structureimagerequest.h"
#include "species/structurepicture.h"
#include "support/messages.h"
#include "ui_mainwindow.h"

#include <QClipboard>
#include <QMenu>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QScopeGuard>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// No structure drawing is that large; an answer that never ends would fill the memory.
constexpr qint64 mostBytes = qint64{32} * 1024 * 1024;

} // namespace

void MainWindow::onButtonDownloadClicked()
{
    QString casNumber = ui->lineEditCAS->toPlainText().trimmed();
    if (!isValidCasNumber(casNumber)) {
        Messages::warning(this, tr("Invalid Input"),
                          tr("Please enter a valid CAS number (e.g., 58-08-2)."));
        return;
    }
    const QString digits = casNumber.remove(u'-');
    QNetworkReply* reply = networkManager->get(QNetworkRequest(structureImageUrl(digits)));
    // Not at the reports of progress, which come ten times a second only.
    connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > mostBytes)
            reply->abort();
    });
    showWhetherDownloading();
}

void MainWindow::onImageDownloaded(QNetworkReply* reply)
{
    const auto release = qScopeGuard([reply] { reply->deleteLater(); });
    showWhetherDownloading();
    // The end can come before the next report of progress, so the size is looked at once more.
    if (reply->error() != QNetworkReply::NoError || reply->bytesAvailable() > mostBytes) {
        Messages::critical(this, tr("Download Failed"), tr("Failed to download the image."));
        return;
    }
    // Through a pixmap, so that the record holds the picture in the screen's own pixel format.
    const QPixmap picture = QPixmap::fromImage(StructurePicture::decode(reply->readAll()));
    if (picture.isNull()) {
        Messages::critical(this, tr("Image Error"), tr("Failed to load the image data."));
        return;
    }
    setStructureImage(QVariant::fromValue(picture.toImage()));
}

void MainWindow::showWhetherDownloading()
{
    const QList<QNetworkReply*> replies = networkManager->findChildren<QNetworkReply*>();
    if (std::any_of(replies.begin(), replies.end(), std::mem_fn(&QNetworkReply::isRunning)))
        ui->buttonDownload->setCursor(Qt::BusyCursor);
    else
        ui->buttonDownload->unsetCursor();
}

void MainWindow::setStructureImage(const QVariant& image)
{
    speciesModel->setData(speciesModel->index(0, SpeciesModel::StructureImage), image,
                          Qt::EditRole);
}

void MainWindow::showImage()
{
    const QImage image = speciesModel->image();
    if (image.isNull()) {
        ui->imageLabel->clear();
        return;
    }
    // As many pixels as the screen has there: a label doubles smaller pictures, which blurs them.
    const double pixelRatio = ui->imageLabel->devicePixelRatioF();
    QPixmap picture = QPixmap::fromImage(image).scaled(
        ui->imageLabel->size() * pixelRatio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(pixelRatio);
    ui->imageLabel->setPixmap(picture);
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
    setStructureImage(QVariant());
}

void MainWindow::pasteImageFromClipboard()
{
    const QImage image = QGuiApplication::clipboard()->image();
    if (image.isNull()) {
        Messages::warning(this, tr("No Image"), tr("The clipboard does not contain an image."));
        return;
    }
    setStructureImage(QVariant::fromValue(image));
}
