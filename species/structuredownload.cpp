// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/structuredownload.h"

#include "species/structurepicture.h"

#include <QNetworkAccessManager>
#include <QNetworkCookieJar>
#include <QNetworkReply>
#include <QPixmap>

#include <chrono>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// No structure drawing is that large; an answer that never ends would fill the memory.
constexpr qint64 mostBytes = qint64{32} * 1024 * 1024;

/// With its headers and its encryption, and what the system has taken but the toolkit not yet read.
constexpr qint64 mostReceived = mostBytes + mostBytes / 4;

} // namespace

StructureDownload::StructureDownload(QNetworkAccessManager* networkManager)
    : QObject(networkManager)
    , manager(networkManager)
{
    // Nobody else learns for which substance a person asks.
    manager->setRedirectPolicy(QNetworkRequest::SameOriginRedirectPolicy);
    connect(manager, &QNetworkAccessManager::finished, this, &StructureDownload::end);
    // The toolkit takes some megabytes of headers in that time.
    constexpr std::chrono::milliseconds interval(50);
    watch.setInterval(interval);
    connect(&watch, &QTimer::timeout, this, &StructureDownload::giveUpEndlessAnswers);
}

void StructureDownload::start(const QString& casNumber)
{
    if (!isRunning()) {
        received = ReceivedBytes();
        asked = 0;
    }
    ++asked;
    watch.start();
    QNetworkReply* reply = manager->get(QNetworkRequest(address(casNumber)));
    // Not at the reports of progress, which come ten times a second only.
    connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > mostBytes)
            reply->abort();
    });
    Q_EMIT runningChanged(isRunning());
}

void StructureDownload::end()
{
    const bool goesOn = isRunning();
    if (!goesOn) {
        watch.stop();
        forgetAnswers();
    }
    Q_EMIT runningChanged(goesOn);
}

void StructureDownload::forgetAnswers()
{
    manager->clearAccessCache(); // connections and credentials
    manager->setCookieJar(new QNetworkCookieJar);
}

void StructureDownload::giveUpEndlessAnswers()
{
    if (received.count() <= asked * mostReceived)
        return;
    const QList<QNetworkReply*> endless = running();
    for (QNetworkReply* reply : endless)
        reply->abort();
}

QList<QNetworkReply*> StructureDownload::running() const
{
    QList<QNetworkReply*> replies = manager->findChildren<QNetworkReply*>();
    replies.removeIf(std::mem_fn(&QNetworkReply::isFinished));
    return replies;
}

StructureDownload::Result StructureDownload::take(QNetworkReply& reply)
{
    // The end can come before the last of the answer is announced: its size is looked at once more.
    if (reply.error() != QNetworkReply::NoError || reply.bytesAvailable() > mostBytes)
        return {Outcome::Failed, {}};
    // Through a pixmap, which has the screen's own pixel format.
    const QPixmap picture = QPixmap::fromImage(StructurePicture::decode(reply.readAll()));
    if (picture.isNull())
        return {Outcome::NoPicture, {}};
    return {Outcome::Taken, picture.toImage()};
}

QUrl StructureDownload::address(const QString& casNumber)
{
    const QString digits = QString(casNumber).remove(u'-');
    const QString text =
        "https://webbook.nist.gov/cgi/cbook.cgi?Struct=C"_L1 + digits + "&Type=Color"_L1;
    return QUrl(text, QUrl::TolerantMode);
}
