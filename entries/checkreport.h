// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/finding.h"

#include <QJsonArray>
#include <QList>

/// What a check found, for people and for programs.
class CheckReport
{
public:
    void countFile() { ++files; }
    /// Counts what was found, in a file or between files.
    void add(const QList<Finding>& findings);
    /// Keeps the findings for toJson(); otherwise they are only counted.
    void keepFindings() { keeping = true; }

    [[nodiscard]] qsizetype errorCount() const { return errors; }

    /// A line for each finding: "file: place: error: sentence [rule]".
    [[nodiscard]] static QString line(const Finding& finding, bool colours);
    /// "20 files: 5 errors, 1 warning"
    [[nodiscard]] QString summary() const;
    /// The documented object.
    [[nodiscard]] QByteArray toJson() const;

private:
    qsizetype files = 0;
    qsizetype errors = 0;
    qsizetype warnings = 0;
    bool keeping = false;
    QJsonArray kept;
};
