// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace TestSupport {

/// What became of one run of the console program.
struct ProgramRun
{
    int exitCode = -1; ///< -1 when it did not end by itself.
    QByteArray output;
    QByteArray errors;
};

/// Runs a program in a folder, without a display and in the C locale.
[[nodiscard]] ProgramRun runProgram(const QString& program, const QStringList& arguments,
                                    const QString& folder);

} // namespace TestSupport
