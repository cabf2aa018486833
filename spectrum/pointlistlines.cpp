// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlistlines.h"

#include "spectrum/pointtext.h"

#include <QPlainTextEdit>
#include <QTextBlock>

namespace PointListLines {

QString plainText(QString documentText)
{
    documentText.replace(QChar::ParagraphSeparator, u'\n');
    documentText.replace(QChar::LineSeparator, u'\n');
    return documentText.replace(QChar::Nbsp, u' ');
}

QString plainText(const QTextBlock& block)
{
    return plainText(block.text());
}

void select(QPlainTextEdit& list, const PointText::Line& line)
{
    QTextCursor cursor = list.textCursor();
    cursor.setPosition(static_cast<int>(line.position + line.length));
    cursor.setPosition(static_cast<int>(line.position), QTextCursor::KeepAnchor);
    const bool wasSeen = list.viewport()->rect().contains(list.cursorRect(cursor));
    list.setTextCursor(cursor);
    if (!wasSeen)
        list.centerCursor();
}

} // namespace PointListLines
