// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlistedit.h"

#include <QMimeData>
#include <QTextCursor>

#include <memory>

QMimeData* PointListEdit::createMimeDataFromSelection() const
{
    QString text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    text.replace(QChar::Nbsp, u' ');
    auto selection = std::make_unique<QMimeData>();
    selection->setText(text);
    return selection.release();
}

void PointListEdit::insertFromMimeData(const QMimeData* source)
{
    if (source == nullptr || isReadOnly() || !source->hasText())
        return;
    textCursor().insertText(source->text());
    ensureCursorVisible();
}
