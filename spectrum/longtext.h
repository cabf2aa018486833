// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QPlainTextEdit;
class QTextDocument;

/// Puts texts of any number of lines into documents, with the result of the toolkit's own
/// functions, which take the longer for each line the more lines there are.
namespace LongText {

/// As QTextDocument::setPlainText() does: nothing can be undone, and who listens is told once.
void setPlainText(QTextDocument& document, const QString& text);

/// As QPlainTextEdit::setPlainText() does: nothing can be undone, the caret stands at the start,
/// and textChanged() is emitted once.
void setPlainText(QPlainTextEdit& list, const QString& text);

} // namespace LongText
