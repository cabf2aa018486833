// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QWidget;

/// Modal dialogs that ask for the name of a JSON file. They show JSON files, and all others when
/// wanted. The name is empty when a dialog was cancelled.
namespace JsonFileDialog {

/// The name of a file that is there; the dialog starts in the last folder used.
[[nodiscard]] QString nameToOpen(QWidget* parent, const QString& title);

/// The name of a file to be written; the dialog starts at @p start, which is a folder or a file.
[[nodiscard]] QString nameToSave(QWidget* parent, const QString& title, const QString& start);

} // namespace JsonFileDialog
