// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/markupbudget.h"

#include <QString>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A second of a slow machine.
constexpr qint64 longestWork = 8'000'000;

/// Some dozens of foreign tags are always fine. Beyond that a text has to be long to be dear, or a
/// file could have a thousand of them.
constexpr qint64 leastWork = 5000;
constexpr qint64 workPerCharacter = 4;

bool isTablePart(const QString& name)
{
    static constexpr std::array parts{"table"_L1, "tr"_L1,    "td"_L1,    "th"_L1,
                                      "tbody"_L1, "thead"_L1, "tfoot"_L1, "caption"_L1};
    return std::find(parts.begin(), parts.end(), name) != parts.end();
}

int mostOthers(MarkupBudget::Limits limits)
{
    switch (limits) {
    case MarkupBudget::Limits::Usual:
        return 1000;
    case MarkupBudget::Limits::Strict:
        return 8;
    case MarkupBudget::Limits::None:
        break;
    }
    return 0;
}

/// The largest number in a tag; the largest possible where one may be hidden in references.
qint64 largestNumber(QStringView tag)
{
    constexpr qint64 most = 1'000'000;
    qint64 largest = tag.contains(u'&') ? most : 0;
    qint64 number = 0;
    for (const QChar c : tag) {
        number = c.isDigit() ? std::min(most, 10 * number + c.digitValue()) : 0;
        largest = std::max(largest, number);
    }
    return largest;
}

bool changeDepth(int& depth, bool closing)
{
    constexpr int deepest = 16;
    if (closing)
        depth = std::max(0, depth - 1);
    else if (depth >= deepest)
        return false;
    else
        ++depth;
    return true;
}

} // namespace

MarkupBudget::MarkupBudget(Limits limits, qsizetype characters)
    : mostWork(std::min(longestWork, leastWork + workPerCharacter * qint64{characters}))
    , tableParts(limits == Limits::Usual ? 24 : 0)
    , others(mostOthers(limits))
    , styleSheet(limits == Limits::Usual ? 256 : 0)
{}

bool MarkupBudget::admits(QStringView tag, qsizetype charactersBefore)
{
    if (!admitsAtAll(tag))
        return false;
    work += (opened + 1) * (rules + 1);
    // For each picture the reader looks through the paragraph; what it takes for a character is a
    // small part of what it takes for an element around a tag.
    constexpr qsizetype charactersPerElement = 8;
    if (tag.startsWith("im"_L1, Qt::CaseInsensitive))
        work += charactersBefore / charactersPerElement;
    return true;
}

bool MarkupBudget::admitsAtAll(QStringView tag)
{
    const bool closing = tag.startsWith(u'/');
    const QStringView rest = closing ? tag.sliced(1) : tag;
    const auto nameEnd =
        std::find_if_not(rest.begin(), rest.end(), [](QChar c) { return c.isLetterOrNumber(); });
    const QString name = rest.first(nameEnd - rest.begin()).toString().toLower();
    // The reader expands entities in names; no element is called by such a name.
    if (nameEnd != rest.end() && *nameEnd == u'&')
        return false;
    // Only tags that hold nothing else are sure to be for the reader what they are here.
    const bool isBare = nameEnd == rest.end();
    if (isBare && name == "sub"_L1)
        return changeDepth(subscriptDepth, closing);
    if (isBare && name == "sup"_L1)
        return changeDepth(superscriptDepth, closing);
    if (closing && !isTablePart(name))
        return true;
    if (name == "br"_L1)
        return true;
    // The next of these two ends the last one.
    if (name != "p"_L1 && name != "li"_L1)
        ++opened;
    if (!isTablePart(name))
        return others-- > 0;
    if (tableParts-- <= 0)
        return false;
    // A cell may span columns that the reader makes for it.
    constexpr qint64 workPerColumn = 8;
    work += workPerColumn * largestNumber(rest.sliced(name.size()));
    if (!closing && name == "table"_L1)
        ++tables;
    return true;
}

bool MarkupBudget::admitsStyleSheet(qsizetype length)
{
    if (length > styleSheet)
        return false;
    styleSheet -= length;
    // Rules have braces and a name at least, or share them but not their commas.
    constexpr qint64 shortestRule = 2;
    rules += 1 + length / shortestRule;
    return true;
}

bool MarkupBudget::isOverspent(qsizetype characters) const
{
    // Each table lays what is in it out twice.
    constexpr qint64 layoutOfCharacter = 3;
    const qint64 layout = tables > 0 ? (characters * layoutOfCharacter) << tables : 0;
    return work + layout > mostWork;
}

bool MarkupBudget::isInRaisedOrLowered() const
{
    return subscriptDepth > 0 || superscriptDepth > 0;
}
