// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

class QPlainTextEdit;
class QTextDocument;

/// Puts texts of any number of lines into documents, with the result of the toolkit's own
/// functions, which take the longer for each line the more lines there are.
namespace LongText {

/// Whether to go on when so many of all pieces of a text are done. Asked now and then; when not, a
/// part of the text is left out, and false is returned.
using GoOn = std::function<bool(qsizetype done, qsizetype all)>;

/// As QTextDocument::setPlainText() does: nothing can be undone, and who listens is told once.
bool setPlainText(QTextDocument& document, const QString& text, const GoOn& goOn = {});

/// As QPlainTextEdit::setPlainText() does: nothing can be undone, the caret stands at the start,
/// and textChanged() is emitted once.
bool setPlainText(QPlainTextEdit& list, const QString& text, const GoOn& goOn = {});

} // namespace LongText
