// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Marked-up text for programs that know no markup.
namespace PlainText {

/// The text with Unicode's raised and lowered characters where it has them for all characters of a
/// run ("H₂O", "²Π", "cm⁻¹"), else with the plain ones ("Π1/2"). Line breaks become line feeds;
/// what stands in no sub, sup or br tag stays as it is.
[[nodiscard]] QString fromMarkedUp(const QString& markedUp);

/// The same in one line: lines are joined by "; " and white space is simplified.
[[nodiscard]] QString inOneLine(const QString& markedUp);

} // namespace PlainText
