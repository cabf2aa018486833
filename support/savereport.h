// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filesave.h"

#include <QString>

class QDateTime;

/// What is said of a file that was saved, or was to be.
struct SaveReport
{
    QString text;   ///< What, when and where.
    QString inFull; ///< With the day and the second, and the path in a line of its own.
};

/// Of saving @p what, such as "Entry", in the file at @p path.
[[nodiscard]] SaveReport saveReport(const QString& what, const QString& path, SaveResult result,
                                    const QDateTime& when);
