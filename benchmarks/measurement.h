// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>

/// What a piece of work took, in nanoseconds.
struct Cost
{
    qint64 wall = 0;
    qint64 cpu = 0; ///< User and system time of all threads.

    Cost& operator+=(const Cost& other);
};

/// Does the work once. Callgrind counts the instructions of the last work that was done, and no
/// others.
[[nodiscard]] Cost costOf(const std::function<void()>& work);

/// Does one unit of work. Whatever it needs was prepared when it was made, and whatever it has to
/// tidy up afterwards is not part of the cost.
using Measurement = std::function<Cost()>;

/// Where the inputs are, and how many points the work is about.
struct Subject
{
    QString folder;
    int size = 0;

    /// The text of the generated point lines.
    [[nodiscard]] QString pointText() const;
    [[nodiscard]] QString path(const QString& fileName) const;
};

/// By name, what prepares a measurement.
using Measurements = std::map<QByteArray, std::function<Measurement(const Subject&)>>;

/// Keeps the compiler from leaving out work whose result nobody uses.
void keep(qsizetype size);

/// Work on points alone, without a window.
[[nodiscard]] Measurements pointMeasurements();

/// Work of the editor's windows.
[[nodiscard]] Measurements windowMeasurements();

/// What a person does at a chart and its points, motion by motion.
[[nodiscard]] Measurements chartMeasurements();
