// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/textalignment.h"

#include <QTextEdit>

namespace TextAlignment {

Outcome toggle(QWidget* field, QTextCharFormat::VerticalAlignment alignment)
{
    auto* text = qobject_cast<QTextEdit*>(field);
    if (text == nullptr)
        return Outcome::NoTextField;
    QTextCursor cursor = text->textCursor();
    if (!cursor.hasSelection())
        return Outcome::NoSelection;

    QTextCharFormat format;
    const bool toggleBack = cursor.charFormat().verticalAlignment() == alignment;
    format.setVerticalAlignment(toggleBack ? QTextCharFormat::AlignNormal : alignment);
    cursor.mergeCharFormat(format);
    text->setTextCursor(cursor);
    return Outcome::Changed;
}

} // namespace TextAlignment
