// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QTcpServer>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

/// A pipe that nobody may read. Whoever opens it as an ordinary file would wait for ever; the trap
/// notes that, and lets the reader go on with an empty file, so that a test fails and does not
/// hang.
class FifoTrap
{
public:
    /// Makes the pipe @p path, which must not exist yet.
    explicit FifoTrap(const QString& path);
    ~FifoTrap();
    Q_DISABLE_COPY_MOVE(FifoTrap)

    /// Whether the pipe could be made; there are none outside Unix.
    [[nodiscard]] bool isSet() const { return set; }
    [[nodiscard]] QString path() const { return pipePath; }
    [[nodiscard]] QString url() const;

    /// Whether anybody has opened the pipe for reading.
    [[nodiscard]] bool sprung() const { return readers > 0; }

private:
    void watch();

    QString pipePath;
    bool set = false;
    std::atomic<int> readers = 0;
    std::atomic<bool> stopped = false;
    std::thread watcher;
};

/// A server on this computer that nobody may turn to.
class LoopbackTrap
{
public:
    LoopbackTrap();
    Q_DISABLE_COPY_MOVE(LoopbackTrap)

    [[nodiscard]] bool isSet() const { return server.isListening(); }
    [[nodiscard]] QString url() const;

    /// Whether anybody has connected.
    [[nodiscard]] bool sprung();

private:
    QTcpServer server;
};

/// Ends the program when it is not destroyed in time: for what would take for ever if it went
/// wrong. Generous, so that no slow machine ever meets it.
class Deadline
{
public:
    explicit Deadline(std::chrono::seconds limit = std::chrono::seconds(60));
    ~Deadline();
    Q_DISABLE_COPY_MOVE(Deadline)

private:
    void wait(std::chrono::seconds limit);

    std::mutex mutex;
    std::condition_variable wake;
    bool met = false;
    std::thread guard;
};
