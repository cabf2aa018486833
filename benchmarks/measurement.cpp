// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/measurement.h"

#include <QDir>
#include <QFile>

#include <atomic>
#include <chrono>
#include <ctime>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>

using namespace Qt::StringLiterals;
#else
#define CALLGRIND_START_INSTRUMENTATION
#define CALLGRIND_STOP_INSTRUMENTATION
#define CALLGRIND_ZERO_STATS
#endif

namespace {

qint64 cpuTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    constexpr qint64 nanosecondsPerSecond = 1'000'000'000;
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

} // namespace

Cost& Cost::operator+=(const Cost& other)
{
    wall += other.wall;
    cpu += other.cpu;
    return *this;
}

Cost costOf(const std::function<void()>& work)
{
    using Clock = std::chrono::steady_clock;
    CALLGRIND_ZERO_STATS;
    CALLGRIND_START_INSTRUMENTATION;
    const Clock::time_point wallBefore = Clock::now();
    const qint64 cpuBefore = cpuTime();
    work();
    const qint64 cpu = cpuTime() - cpuBefore;
    const std::chrono::nanoseconds wall = Clock::now() - wallBefore;
    CALLGRIND_STOP_INSTRUMENTATION;
    return {wall.count(), cpu};
}

QString Subject::path(const QString& fileName) const
{
    return QDir(folder).filePath(fileName);
}

QString Subject::pointText() const
{
    QFile file(path(u"points-%1.txt"_s.arg(size)));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return QString::fromLatin1(file.readAll());
}

void keep(qsizetype size)
{
    static std::atomic<qsizetype> sink;
    sink.store(size, std::memory_order_relaxed);
}
