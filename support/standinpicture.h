// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QTextImageFormat>

class QTextDocument;

/// Empty pictures that stand in a document for text that is kept but not laid out. A letter shows
/// the marks that it can carry; more would be laid out and painted one over the other at every
/// repaint. In the same way one picture stands for everything behind what a field shows of a text
/// of endless lines, raised and lowered parts, or changes between writings.
namespace StandInPicture {

/// The element of HTML for marks on the letter before it.
[[nodiscard]] QString ofMarks(const QString& marks);

/// The element of HTML for the rest of a text, which is given to it in the document.
[[nodiscard]] QString ofRest();

/// The picture for the rest of a text, which may have markup of its own.
[[nodiscard]] QTextImageFormat formatOfRest(const QString& text);

/// Gives the last picture of a rest in the document its text. Nobody is told of a change, and
/// nothing can be undone afterwards.
void giveRest(QTextDocument& document, const QString& text);

/// The text for which a picture stands; empty for any other format.
[[nodiscard]] QString textOf(const QTextFormat& format);

/// Whether a picture stands for the rest of a text.
[[nodiscard]] bool isOfRest(const QTextFormat& format);
[[nodiscard]] bool isOfRest(const QString& name);

} // namespace StandInPicture
