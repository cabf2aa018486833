// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"
#include "entries/filesummary.h"
#include "entries/finding.h"

#include <QSet>

/// The one table of everything that a curator would object to.
namespace Rules {

struct Rule
{
    const char* name = nullptr; ///< Scripts know it: never changed, never used again.
    Severity severity{};
    bool inSchemas = false; ///< The JSON Schemas refuse the same.
    const char* reason = nullptr;
    /// Looks at one file, or at all together; one of the two is there.
    void (*check)(const EntryFile&, const Complain&) = nullptr;
    void (*compare)(const QList<FileSummary>&, const ComplainOfFile&) = nullptr;
};

[[nodiscard]] const QList<Rule>& all();

[[nodiscard]] bool isRule(const QString& name);

/// Which rules are asked, and how strictly.
struct Selection
{
    QSet<QString> disabled; ///< Names of rules.
    bool strict = false;    ///< Warnings are errors.
};

/// What the rules find in one file, in the order of the table.
[[nodiscard]] QList<Finding> judge(const EntryFile& file, const Selection& selection);

/// What they find between files.
[[nodiscard]] QList<Finding> compare(const QList<FileSummary>& files, const Selection& selection);

} // namespace Rules
