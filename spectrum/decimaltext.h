// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Numbers as text, exactly as the toolkit writes them (QString::number()) but many times faster
/// for the magnitudes of energies and intensities; all others are left to the toolkit.
namespace DecimalText {

/// Appends @p value with @p decimals digits (0 to 9) after the dot, as QString::number() does with
/// format 'f'.
void appendFixed(QString& text, double value, int decimals);

/// Appends @p value with six significant digits and no trailing zeros, as QString::number() does
/// with format 'g'.
void appendSignificant(QString& text, double value);

} // namespace DecimalText
