// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlistedit.h"

#include "spectrum/pointlistlines.h"
#include "support/waitcursor.h"

#include <QMimeData>
#include <QResizeEvent>
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
    const WaitCursor waiting;
    textCursor().insertText(source->text());
    ensureCursorVisible();
}

void PointListEdit::resizeEvent(QResizeEvent* event)
{
    const int width = event->size().width();
    const bool isWrapped = wrapped == document() && wrapWidth == width;
    // A list that is shown is told of its size as if it had had none before, and would wrap all its
    // lines anew, which leaves some 340 bytes behind for each of them.
    if (!event->oldSize().isValid() && isWrapped) {
        QResizeEvent sameWidth(event->size(), {width, -1});
        QPlainTextEdit::resizeEvent(&sameWidth);
    } else {
        QPlainTextEdit::resizeEvent(event);
    }
    wrapped = document();
    wrapWidth = width;
}
