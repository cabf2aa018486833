// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArrayList>
#include <QHash>
#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QTcpServer>

class QSslSocket;

/// Stands for the service that draws structures: a proxy on this computer that answers every
/// tunnel to https://webbook.nist.gov itself, over real TLS. Nothing leaves the computer.
class PictureHost : public QTcpServer
{
    Q_OBJECT

public:
    PictureHost();

    /// The proxy through which the host is reached.
    [[nodiscard]] QNetworkProxy proxy() const;

    /// Answers a GET for @p target (path and query) with 200 and @p body; everything else gets 404.
    void serve(const QByteArray& target, const QByteArray& body);

    /// Sends who asks for @p target on to @p location, a path on this host or a whole address.
    void redirect(const QByteArray& target, const QByteArray& location);

    /// Answers a GET for @p target with @p beginning and then one @p piece after the other, which
    /// seems to have no end: 256 MiB, so that a program that takes it all fails its test and not
    /// the computer.
    void serveEndlessly(const QByteArray& target,
                        const QByteArray& beginning = "HTTP/1.1 200 OK\r\n\r\n",
                        const QByteArray& piece = "0");

    /// What the endless answer has come to until now, a few MiB in buffers on the way included.
    [[nodiscard]] qint64 endlessBytesSent() const { return endlessBytes; }

    /// Keeps the answers back until they are released one by one.
    void holdAnswers() { holding = true; }
    /// Answers the request for @p target that is being held back.
    void release(const QByteArray& target);

    /// "CONNECT host:port" of every tunnel asked for.
    [[nodiscard]] QByteArrayList tunnels() const { return openedTunnels; }
    /// First line and Host header, as "GET target HTTP/1.1 @host", of every request.
    [[nodiscard]] QByteArrayList requests() const { return seenRequests; }
    /// The Cookie header of every request that had one. Every answer sets a cookie.
    [[nodiscard]] QByteArrayList cookies() const { return seenCookies; }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void openTunnel(QSslSocket& client);
    void readRequest(QSslSocket& client);
    void answer(QSslSocket& client, const QByteArray& target);
    void answerEndlessly(QSslSocket& client);

    bool holding = false;
    QByteArray endlessTarget;
    QByteArray endlessBeginning;
    QByteArray endlessPieces; ///< About 1 MiB.
    qint64 endlessBytes = 0;
    QHash<QByteArray, QByteArray> bodies;
    QHash<QByteArray, QByteArray> locations;
    QHash<QByteArray, QSslSocket*> held;
    QByteArrayList openedTunnels;
    QByteArrayList seenRequests;
    QByteArrayList seenCookies;
};

/// While it lives, the program trusts the certificate of PictureHost and no other.
class TrustInPictureHost
{
public:
    TrustInPictureHost();
    ~TrustInPictureHost();
    Q_DISABLE_COPY_MOVE(TrustInPictureHost)

private:
    QSslConfiguration before;
};
