// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The one persistent setting: the folder in which file dialogs start.
namespace LastOpenFolder {

/// The stored folder, or the user's home folder while none has been stored.
[[nodiscard]] QString path();

/// Stores the absolute folder of @p file.
void rememberFolderOf(const QString& file);

} // namespace LastOpenFolder
