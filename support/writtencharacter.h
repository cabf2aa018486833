// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QChar>
#include <QStringView>

[[nodiscard]] inline bool isAsciiLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

[[nodiscard]] inline bool isAsciiLetterOrDigit(QChar c)
{
    return isAsciiLetter(c) || (c >= u'0' && c <= u'9');
}

/// A character as it is written in a text, directly or as a numeric reference, and what makes it
/// dear to lay out.
struct WrittenCharacter
{
    char32_t character = 0;
    qsizetype length = 1; ///< Of what is written.

    /// The one with which a text begins that is not empty.
    [[nodiscard]] static WrittenCharacter first(QStringView text);

    /// Whether the character is none of those that need a closer look.
    [[nodiscard]] static bool isPlain(QChar c)
    {
        return c < u'\u0300' && c != u'<' && c != u'&' && !(c > u'~' && c < u'\u00a0');
    }

    /// Whether it combines with the letter before it.
    [[nodiscard]] bool isMark() const;

    /// Whether it is laid out apart from its neighbours, whatever they are.
    [[nodiscard]] bool isPiece() const;

    /// What it is laid out apart from the characters of another; inherited for punctuation of all
    /// writings.
    [[nodiscard]] QChar::Script writing() const;
};

/// Whether a text that begins with "&" may begin with the name of a character that is laid out
/// apart from its neighbours.
[[nodiscard]] bool isUnusualReference(QStringView text);
