// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The download of the structure image.

#include "app/mainwindow.h"
#include "species/casnumber.h"
#include "species/speciesmodel.h"
#include "species/structureimagerequest.h"
#include "species/structurepicture.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "ui_mainwindow.h"

#include <QNetworkAccessManager>
#include <QNetworkCookieJar>
#include <QNetworkReply>
#include <QScopeGuard>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// No structure drawing is that large; an answer that never ends would fill the memory.
constexpr qint64 mostBytes = qint64{32} * 1024 * 1024;

bool isDownloading(const QNetworkAccessManager& manager)
{
    const QList<QNetworkReply*> replies = manager.findChildren<QNetworkReply*>();
    return std::any_of(replies.begin(), replies.end(), std::mem_fn(&QNetworkReply::isRunning));
}

/// Drops connections, credentials and cookies, unless a download still needs them.
void forgetDownloads(QNetworkAccessManager& manager)
{
    if (isDownloading(manager))
        return;
    manager.clearAccessCache();
    manager.setCookieJar(new QNetworkCookieJar);
}

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
    if (reply == nullptr)
        return; // whoever invokes the slot by name may have none
    const auto release = qScopeGuard([reply] { reply->deleteLater(); });
    showWhetherDownloading();
    forgetDownloads(*networkManager);
    // The end can come before the next report of progress, so the size is looked at once more.
    if (reply->error() != QNetworkReply::NoError || reply->bytesAvailable() > mostBytes) {
        Messages::critical(this, tr("Download Failed"), tr("Failed to download the image."));
        return;
    }
    const WaitCursor waiting;
    // Through a pixmap, so that the record holds the picture in the screen's own pixel format.
    const QPixmap picture = QPixmap::fromImage(StructurePicture::decode(reply->readAll()));
    if (picture.isNull()) {
        Messages::critical(this, tr("Image Error"), tr("Failed to load the image data."));
        return;
    }
    speciesModel->setValue(SpeciesModel::StructureImage, picture.toImage());
}

void MainWindow::showWhetherDownloading()
{
    if (isDownloading(*networkManager))
        ui->buttonDownload->setCursor(Qt::BusyCursor);
    else
        ui->buttonDownload->unsetCursor();
}
