// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"
#include "entries/filesummary.h"
#include "entries/finding.h"

#include <QList>
#include <QMap>
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

/// What the rules find in one file, or in a piece of it, in the order of the table.
struct Judgement
{
    QList<Finding> findings;
    QMap<QString, qsizetype> further; ///< Of each rule, how many there are besides.
};

[[nodiscard]] Judgement judge(const EntryFile& file, const Selection& selection);

/// Sees to it that of a file that is wrong all over not everything is told.
class ToldOfFile
{
public:
    explicit ToldOfFile(const Selection& rules)
        : selection(rules)
    {}

    /// Those of the findings in a piece of the file that are told.
    [[nodiscard]] QList<Finding> admit(const Judgement& judgement);
    /// How many others there are; the next findings are those of another file.
    [[nodiscard]] QList<Finding> endFile(const QString& file);

private:
    const Selection& selection;
    QMap<QString, qsizetype> told;
    QMap<QString, qsizetype> further;
};

/// What they find between files.
[[nodiscard]] QList<Finding> compare(const QList<FileSummary>& files, const Selection& selection);

} // namespace Rules
