// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// An energy as people write it down.
struct EnergyText
{
    double value = 0;       ///< eV
    double uncertainty = 0; ///< eV; 0 when none is given.

    /// From "number" or "number ± number" with a decimal point; empty when it is anything else.
    [[nodiscard]] static std::optional<EnergyText> parse(const QString& markedUp);
};

/// Digital object identifiers.
namespace Doi {

/// Whether the text is one, bare or with "doi:" or the address of the resolver in front.
[[nodiscard]] bool isDoi(const QString& text);

/// Whether the text is obviously meant to be one: it begins with "doi:" or with the address.
[[nodiscard]] bool isMeantToBe(const QString& text);

} // namespace Doi
