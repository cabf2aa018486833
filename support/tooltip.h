// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Tool tips.
namespace ToolTip {

/// The text as a tool tip that shows it character for character, wrapped, and never more of it than
/// can be read: it may come from a file, and markup in it must not be taken for markup.
[[nodiscard]] QString plain(const QString& text);

} // namespace ToolTip
