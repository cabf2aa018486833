// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "spectrum/pointtext.h"

#include <QString>

/// What a status bar says of a spectrum's points.
namespace SpectrumStatus {

/// What was understood of a point text, what matters most first. Numbers are not rounded, and no
/// longer than that takes.
[[nodiscard]] QString toText(const PointText::Census& census);

} // namespace SpectrumStatus
