// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Superscript and subscript of the selected text.

#include "app/mainwindow.h"
#include "support/messages.h"

#include <QApplication>
#include <QTextEdit>

void MainWindow::applySubscript()
{
    applyTextFormatting(QTextCharFormat::AlignSubScript);
}

void MainWindow::applySuperscript()
{
    applyTextFormatting(QTextCharFormat::AlignSuperScript);
}

void MainWindow::applyTextFormatting(QTextCharFormat::VerticalAlignment alignment)
{
    auto* field = qobject_cast<QTextEdit*>(QApplication::focusWidget());
    if (field == nullptr) {
        Messages::warning(this, tr("No Text Field Focused"),
                          tr("Please focus on a text field to apply formatting."));
        return;
    }
    QTextCursor cursor = field->textCursor();
    if (!cursor.hasSelection()) {
        Messages::information(this, tr("No Selection"), tr("Please select text to format."));
        return;
    }

    QTextCharFormat format;
    const bool toggleBack = cursor.charFormat().verticalAlignment() == alignment;
    format.setVerticalAlignment(toggleBack ? QTextCharFormat::AlignNormal : alignment);
    cursor.mergeCharFormat(format);
    field->setTextCursor(cursor);
}
