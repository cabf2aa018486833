// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QWidget;

/// Modal message boxes with the single button OK. The text is always shown as plain text: it may
/// quote a file name, and a file name that looks like markup must not make the box load what it
/// names.
namespace Messages {

void information(QWidget* parent, const QString& title, const QString& text);
void warning(QWidget* parent, const QString& title, const QString& text);
void critical(QWidget* parent, const QString& title, const QString& text);

} // namespace Messages
