// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

/// Says which tags of a text may reach the toolkit's HTML reader, whose time grows exponentially
/// with nested table parts, and with the depth of everything else that is open for each further
/// tag. It only counts: any attempt to follow the nesting would have to guess right what the reader
/// takes for a closing tag.
class MarkupBudget
{
public:
    /// What any text may have, what one may have that proved too much work with it, or nothing but
    /// line breaks and raised and lowered text.
    enum class Limits { Usual, Strict, None };

    /// For a text of that many characters, markup included.
    MarkupBudget(Limits limits, qsizetype characters);

    /// Whether the tag between "<" and ">" (both excluded) may stay behind that many characters.
    [[nodiscard]] bool admits(QStringView tag, qsizetype charactersBefore);

    /// Whether a style sheet of that many characters may stay. The reader matches each of its rules
    /// with each tag.
    [[nodiscard]] bool admitsStyleSheet(qsizetype length);

    /// Whether the tags until now may cost the reader, or the layout of that many characters among
    /// them, more than they may take.
    [[nodiscard]] bool isOverspent(qsizetype characters) const;

    /// Whether bare tags for raised or lowered text are open.
    [[nodiscard]] bool isInRaisedOrLowered() const;

private:
    bool admitsAtAll(QStringView tag);

    qint64 mostWork;
    int subscriptDepth = 0;
    int superscriptDepth = 0;
    int tableParts;
    int tables = 0;
    int others;
    qsizetype styleSheet;
    int opened = 0; ///< Tags that may still be open, those of raised and lowered text left out.
    qint64 rules = 0;
    qint64 work = 0;
};
