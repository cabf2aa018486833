// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QPlainTextEdit;
class QTextBlock;

namespace PointText {
struct Line;
} // namespace PointText

/// Lines as the list of points shows them, and as its plain text has them: the document can hold
/// blanks and breaks of lines that its plain text tells otherwise.
namespace PointListLines {

/// A piece of a document as its plain text has it.
[[nodiscard]] QString plainText(QString documentText);
[[nodiscard]] QString plainText(const QTextBlock& block);

/// Selects a line and brings it into view: into the middle of the list if it was not seen, for the
/// list's edge may itself be scrolled out of the form.
void select(QPlainTextEdit& list, const PointText::Line& line);

} // namespace PointListLines
