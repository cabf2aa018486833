// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Does measurements, one for each line of the standard input.
//
// Usage: korvela-bench <folder with the inputs> <measurement> [<number of points>]
//
// A number asks to do the work that often; the answer is the wall and the CPU time of one, in
// nanoseconds. "memory" asks for the resident memory in bytes.

#include "benchmarks/measurement.h"

#include <QApplication>
#include <QFile>

#include <iostream>
#include <string>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

qint64 residentMemory()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no /proc/self/statm");
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

void answer(const Measurement& measurement, const std::string& question)
{
    if (question == "memory") {
        std::cout << residentMemory() << std::endl;
        return;
    }
    const int times = std::stoi(question);
    Cost total;
    for (int i = 0; i < times; ++i)
        total += measurement();
    std::cout << total.wall / times << ' ' << total.cpu / times << std::endl;
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0); // nothing is to be painted but what is measured
    Measurements measurements = pointMeasurements();
    measurements.merge(windowMeasurements());
    measurements.merge(chartMeasurements());
    const auto found = argc < 3 ? measurements.end() : measurements.find(argv[2]);
    if (found == measurements.end())
        qFatal("usage: %s folder measurement [points]", argv[0]);

    const Subject subject{QString::fromLocal8Bit(argv[1]), argc > 3 ? std::stoi(argv[3]) : 0};
    const Measurement measurement = found->second(subject);
    for (std::string question; std::getline(std::cin, question);)
        answer(measurement, question);
}
