// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The download of the structure picture.

#include "app/mainwindow.h"
#include "species/casnumber.h"
#include "species/speciesmodel.h"
#include "species/structuredownload.h"
#include "support/longwork.h"
#include "support/messages.h"
#include "support/waitcursor.h"
#include "ui_mainwindow.h"

#include <QNetworkReply>
#include <QScopeGuard>

void MainWindow::onButtonDownloadClicked()
{
    const QString casNumber = ui->lineEditCAS->toPlainText().trimmed();
    if (isValidCasNumber(casNumber)) {
        download->start(casNumber);
    } else {
        Messages::warning(this, tr("Invalid Input"),
                          tr("Please enter a valid CAS number (e.g., 58-08-2)."));
    }
}

void MainWindow::onImageDownloaded(QNetworkReply* reply)
{
    if (reply == nullptr)
        return; // whoever invokes the slot by name may have none
    if (LongWork::isUnderWay()) {
        // The picture belongs to the entry that is there in the end.
        LongWork::whenOver(reply, [this, reply] { onImageDownloaded(reply); });
        return;
    }
    const auto release = qScopeGuard([reply] { reply->deleteLater(); });
    const WaitCursor waiting;
    const StructureDownload::Result result = StructureDownload::take(*reply);
    switch (result.outcome) {
    case StructureDownload::Outcome::Taken:
        speciesModel->setValue(SpeciesModel::StructureImage, result.picture);
        break;
    case StructureDownload::Outcome::Failed:
        Messages::critical(this, tr("Download Failed"), tr("Failed to download the image."));
        break;
    case StructureDownload::Outcome::NoPicture:
        Messages::critical(this, tr("Image Error"), tr("Failed to load the image data."));
        break;
    }
}
