// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

/// Structural formulas in black on white: Lewis structures with all valence electrons (a line for a
/// bond, a dot for every other electron), benzene as a skeletal formula. Letters are drawn from
/// geometry, so that the pictures do not depend on the fonts of the machine.
namespace StructureDrawing {

[[nodiscard]] QImage nitricOxide();
[[nodiscard]] QImage nitrogen();
[[nodiscard]] QImage oxygen();
[[nodiscard]] QImage carbonMonoxide();
[[nodiscard]] QImage water();
[[nodiscard]] QImage benzene();

} // namespace StructureDrawing
