// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlistedit.h"

#include "spectrum/pointlistlines.h"
#include "spectrum/pointrewrites.h"
#include "support/longwork.h"
#include "support/waitcursor.h"

#include <QCoreApplication>
#include <QMimeData>
#include <QResizeEvent>
#include <QScopedValueRollback>
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
    constexpr qsizetype mostAtOnce = 1'000'000; // characters, some hundred thousand points
    const QString text = source->text();
    if (text.size() > mostAtOnce && mayBeStopped && isUndoRedoEnabled()) {
        insertLongText(text);
        return;
    }
    const WaitCursor waiting;
    textCursor().insertText(text);
    ensureCursorVisible();
}

void PointListEdit::insertLongText(const QString& text)
{
    const WaitCursor waiting;
    LongWork pasting(window(), QCoreApplication::translate("PointListEdit", "Pasting points"));
    PointRewrites::of(*this).insertText(text, pasting.question());
}

void PointListEdit::dropEvent(QDropEvent* event)
{
    if (LongWork::isUnderWay()) {
        event->ignore();
        return;
    }
    // The toolkit is in the middle of an edit. What is moved is taken away from where it was,
    // whatever becomes of it here.
    const QScopedValueRollback<bool> drop(mayBeStopped, false);
    QPlainTextEdit::dropEvent(event);
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
