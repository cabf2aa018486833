// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMessageBox>
#include <QString>

class QObject;
class QWidget;

/// Modal message boxes. Their text is always shown as plain text: it may quote a file name, and a
/// file name that looks like markup must not make the box load what it names. No wait cursor is
/// shown while one is open.
namespace Messages {

/// Boxes with the single button OK.
void information(QWidget* parent, const QString& title, const QString& text);
void warning(QWidget* parent, const QString& title, const QString& text);
void critical(QWidget* parent, const QString& title, const QString& text);

/// A box without a parent that asks; returns the button that was chosen, Cancel when it was closed
/// otherwise.
[[nodiscard]] QMessageBox::StandardButton question(const QString& title, const QString& text,
                                                   const QString& informativeText,
                                                   QMessageBox::StandardButtons buttons,
                                                   QMessageBox::StandardButton defaultButton);

/// Makes the boxes plain that the toolkit opens itself, too, as long as @p owner lives: its file
/// dialog asks with the name of a file whether to replace it.
void keepAllPlain(QObject* owner);

} // namespace Messages
