// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;

/// Cleaned HTML: plain text in which three markups survive, sup and sub elements for raised and
/// lowered characters and "<br>" for a line break. Nothing in it is escaped, so that stored text
/// stays readable: a "<" or "&" that the user typed stands there as it is.
namespace CleanedHtml {

/// What is shown of breaks, tags and changes of writing, each of which is laid out by itself. Ten
/// thousand lines are more than any note has.
inline constexpr int mostPieces = 10'000;

/// What is shown of a text of any kind: to lay out a million takes most of a second.
inline constexpr qsizetype mostCharacters = 3'000'000;

/// The cleaned HTML of a document. Each run of one character format and one line gets tags of its
/// own; neighbouring runs are not merged.
[[nodiscard]] QString fromDocument(const QTextDocument& document);

/// The text without any tag whose name does not begin with sub, sup or br followed by a word
/// boundary. The text between tags, attributes of the kept tags and entities stay. Case-sensitive.
[[nodiscard]] QString withoutForeignTags(const QString& html);

/// The text as it may be handed to the toolkit's HTML reader. A "<" that begins no tag (HTML: one
/// that is not followed by a letter, "/", "!" or "?"; also one that no ">" ever follows) is
/// escaped, because the reader would swallow the text behind it. Elements nested deeper than any
/// text needs lose their tags, because the reader's time grows exponentially with nested tables and
/// quadratically with others. What follows after @p pieces is left out; a picture stands there.
[[nodiscard]] QString forHtmlReader(const QString& html, int pieces = mostPieces);

/// How many characters are laid out of a text without markup that is inserted.
[[nodiscard]] qsizetype lengthOfShown(QStringView text);

/// A text without markup as cleaned HTML: all that ends a line is a break.
[[nodiscard]] QString fromPlainText(QStringView text);

/// What is selected in a document as text without markup, with what is kept but not laid out.
/// Raised and lowered characters stand on the line, but in what is not laid out the tags stay.
[[nodiscard]] QString plainText(const QTextCursor& selection);

/// Makes a text the content of a document, from which fromDocument() has all of it.
void intoDocument(QTextDocument& document, const QString& html);

} // namespace CleanedHtml
