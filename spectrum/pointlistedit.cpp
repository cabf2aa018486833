// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlistedit.h"

#include "spectrum/pointlistlines.h"

#include <QMimeData>
#include <QTextCursor>

#include <memory>

QMimeData* PointListEdit::createMimeDataFromSelection() const
{
    auto selection = std::make_unique<QMimeData>();
    selection->setText(PointListLines::plainText(textCursor().selectedText()));
    return selection.release();
}

void PointListEdit::insertFromMimeData(const QMimeData* source)
{
    if (source == nullptr || isReadOnly() || !source->hasText())
        return;
    textCursor().insertText(source->text());
    ensureCursorVisible();
}
