// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// How numbers look when they are written down.
namespace SignificantDigits {

/// Whether six significant digits are enough to write the number down, as the editor does.
[[nodiscard]] bool areAtMostSix(double value);

} // namespace SignificantDigits
