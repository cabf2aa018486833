// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "species/receivedbytes.h"

#include <QImage>
#include <QObject>
#include <QTimer>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;

/// Fetches structure drawings from the NIST Chemistry WebBook, any number at a time, through a
/// network manager that it borrows. Nothing is kept between downloads: no connection, no cookie.
/// Whoever asks waits for the manager's finished() and takes the picture out of the reply.
class StructureDownload : public QObject
{
    Q_OBJECT

public:
    enum class Outcome { Taken, Failed, NoPicture };
    struct Result
    {
        Outcome outcome;
        QImage picture; ///< In the screen's own pixel format; null unless it was taken.
    };

    /// Owned by @p networkManager, which follows redirections on the same host only from now on.
    explicit StructureDownload(QNetworkAccessManager* networkManager);

    /// Asks for the drawing of the substance with this valid CAS registry number. An answer larger
    /// than any drawing is cut off, whatever it is made of.
    void start(const QString& casNumber);

    /// What a finished reply has brought, which is read out of it.
    [[nodiscard]] static Result take(QNetworkReply& reply);

    /// Address of the colour drawing.
    [[nodiscard]] static QUrl address(const QString& casNumber);

Q_SIGNALS:
    /// A download began or ended; @p running tells whether any is under way now.
    void runningChanged(bool running);

private:
    void end();
    void forgetAnswers();
    void giveUpEndlessAnswers();
    [[nodiscard]] QList<QNetworkReply*> running() const;
    [[nodiscard]] bool isRunning() const { return !running().isEmpty(); }

    QNetworkAccessManager* manager;
    QTimer watch;
    ReceivedBytes received; ///< Since the first of the downloads that are under way began.
    int asked = 0;          ///< Downloads since then.
};
