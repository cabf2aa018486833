// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/traps.h"

#include <QCoreApplication>
#include <QFile>
#include <QUrl>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

FifoTrap::FifoTrap(const QString& path)
    : pipePath(path)
{
#ifdef Q_OS_UNIX
    set = mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
#endif
    if (set)
        watcher = std::thread(&FifoTrap::watch, this);
}

FifoTrap::~FifoTrap()
{
    stopped = true;
    if (watcher.joinable())
        watcher.join();
}

QString FifoTrap::url() const
{
    return QUrl::fromLocalFile(pipePath).toString();
}

void FifoTrap::watch()
{
#ifdef Q_OS_UNIX
    const QByteArray name = QFile::encodeName(pipePath);
    while (!stopped) {
        // Opening for writing without waiting succeeds only while there is a reader.
        const int descriptor = open(name.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (descriptor >= 0) {
            ++readers;
            close(descriptor);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
#endif
}

LoopbackTrap::LoopbackTrap()
{
    server.listen(QHostAddress::LocalHost);
}

QString LoopbackTrap::url() const
{
    return u"http://127.0.0.1:%1/trap.png"_s.arg(server.serverPort());
}

bool LoopbackTrap::sprung()
{
    // What was asked for in the background connects from the event loop.
    QCoreApplication::processEvents();
    return server.hasPendingConnections() || server.waitForNewConnection(0);
}

Deadline::Deadline(std::chrono::seconds limit)
    : guard(&Deadline::wait, this, limit)
{}

Deadline::~Deadline()
{
    {
        const std::lock_guard lock(mutex);
        met = true;
    }
    wake.notify_one();
    guard.join();
}

void Deadline::wait(std::chrono::seconds limit)
{
    std::unique_lock lock(mutex);
    if (!wake.wait_for(lock, limit, [this] { return met; }))
        qFatal("not done in time");
}
