// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/singlelinetextedit.h"

#include "widgets/darktext.h"

#include <QKeyEvent>
#include <QMimeData>

using namespace Qt::StringLiterals;

SingleLineTextEdit::SingleLineTextEdit(QWidget* parent)
    : CleanTextEdit(parent)
{
    setAcceptRichText(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFrameStyle(0);
    setLineWrapMode(QTextEdit::NoWrap);
    setStyleSheet(u"background-color: white; border: 1px solid gray; padding: 2px;"_s);
    setDarkText(*this);
    adjustHeight();
}

void SingleLineTextEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore();
        return;
    }
    CleanTextEdit::keyPressEvent(event);
    adjustHeight();
}

void SingleLineTextEdit::insertFromMimeData(const QMimeData* source)
{
    // Simplified text has no line breaks left; the two replacements say that none may ever get in.
    QString line = source->text().simplified();
    line.replace(u'\n', u' ');
    line.replace(u'\r', u' ');
    textCursor().insertText(line);
    adjustHeight();
}

void SingleLineTextEdit::adjustHeight()
{
    // The frame and the padding of the style sheet take these pixels beside the document.
    constexpr int frameAndPadding = 5;
    document()->adjustSize();
    setFixedHeight(static_cast<int>(document()->size().height()) + frameAndPadding);
}
