// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Superscript and subscript of the selected text.

#include "app/mainwindow.h"
#include "support/messages.h"
#include "widgets/textalignment.h"

#include <QApplication>

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
    switch (TextAlignment::toggle(QApplication::focusWidget(), alignment)) {
    case TextAlignment::Outcome::Changed:
        break;
    case TextAlignment::Outcome::NoTextField:
        Messages::warning(this, tr("No Text Field Focused"),
                          tr("Please focus on a text field to apply formatting."));
        break;
    case TextAlignment::Outcome::NoSelection:
        Messages::information(this, tr("No Selection"), tr("Please select text to format."));
        break;
    }
}
