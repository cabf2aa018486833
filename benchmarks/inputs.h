// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonObject>
#include <QList>
#include <QPointF>

/// Invented data, the same on every computer: sums of peaks with noise from a generator that starts
/// from a fixed seed.
namespace Inputs {

/// A spectrum of @p count points that begins at 8 eV, with its energies rounded to 0.01 meV and its
/// intensities to two decimals.
[[nodiscard]] QList<QPointF> spectrum(int count, double width);

/// An entry of @p datasets spectra of @p points points 1 meV apart, with a picture and texts in
/// every field. Entries with different numbers differ in their texts.
[[nodiscard]] QJsonObject entry(int number, int datasets, int points);

} // namespace Inputs
