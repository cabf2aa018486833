// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// What a person may have mistyped in a species record. Nothing is refused for it; each function
/// returns a sentence that says what is expected, or an empty text when there is nothing to say.
namespace SpeciesHint {

/// About a CAS registry number.
[[nodiscard]] QString aboutCasNumber(const QString& text);

/// About a mass in amu. What is no number is written into files as 0.
[[nodiscard]] QString aboutMass(const QString& text);

} // namespace SpeciesHint
