// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/receivedbytes.h"

#include <QDir>

#include <numeric>

#ifdef Q_OS_LINUX
#include <cstddef>
#include <linux/tcp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// What the connections that are open have brought since they exist.
QHash<quint64, qint64> openConnections()
{
    QHash<quint64, qint64> found;
#ifdef Q_OS_LINUX
    const QStringList descriptors = QDir(u"/proc/self/fd"_s).entryList(QDir::System | QDir::Files);
    for (const QString& name : descriptors) {
        const int descriptor = name.toInt();
        struct stat status = {};
        tcp_info info{};
        socklen_t size = sizeof info;
        if (fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode) &&
            getsockopt(descriptor, IPPROTO_TCP, TCP_INFO, &info, &size) == 0 &&
            size >= offsetof(tcp_info, tcpi_bytes_received) + sizeof info.tcpi_bytes_received)
            found.insert(status.st_ino, static_cast<qint64>(info.tcpi_bytes_received));
    }
#endif
    return found;
}

} // namespace

ReceivedBytes::ReceivedBytes()
{
    const QHash<quint64, qint64> open = openConnections();
    connectionsBefore = QSet<quint64>(open.keyBegin(), open.keyEnd());
}

qint64 ReceivedBytes::count()
{
    const QHash<quint64, qint64> open = openConnections();
    for (auto connection = open.begin(); connection != open.end(); ++connection) {
        if (!connectionsBefore.contains(connection.key()))
            bytes.insert(connection.key(), connection.value());
    }
    return std::accumulate(bytes.begin(), bytes.end(), qint64{0});
}
