// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/leftfield.h"

#include "widgets/windowparts.h"

#include <QApplication>

LeftField::LeftField(const QWidget& window)
{
    auto* focused = qobject_cast<QTextEdit*>(QApplication::focusWidget());
    if (focused == nullptr || !isInsideWindow(focused, window))
        return;
    field = focused;
    text = focused->toPlainText();
    anchor = focused->textCursor().anchor();
    position = focused->textCursor().position();
    focused->clearFocus();
}

LeftField::~LeftField()
{
    if (field.isNull() || field->window()->focusWidget() != nullptr)
        return;
    field->setFocus();
    if (field->toPlainText() != text)
        return;
    QTextCursor cursor = field->textCursor();
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    field->setTextCursor(cursor);
}
