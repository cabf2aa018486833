// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/markupbudget.h"

#include <QString>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

bool isTablePart(const QString& name)
{
    static constexpr std::array parts{"table"_L1, "tr"_L1,    "td"_L1,    "th"_L1,
                                      "tbody"_L1, "thead"_L1, "tfoot"_L1, "caption"_L1};
    return std::find(parts.begin(), parts.end(), name) != parts.end();
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

MarkupBudget::MarkupBudget(Limits limits)
    : tableParts(limits == Limits::Usual ? 24 : 8)
    , others(limits == Limits::Usual ? 1000 : 8)
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
    ++opened;
    return isTablePart(name) ? tableParts-- > 0 : others-- > 0;
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

bool MarkupBudget::isOverspent() const
{
    // A second of a slow machine.
    constexpr qint64 mostWork = 8'000'000;
    return work > mostWork;
}
