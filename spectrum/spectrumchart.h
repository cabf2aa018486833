// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointF>

#include <memory>

class QChart;

/// The chart of a spectrum: one line over a horizontal axis of photon energies (eV) and a vertical
/// one of intensities (arbitrary units).
namespace SpectrumChart {

/// An empty chart, without a legend; hidden, until somebody shows it.
[[nodiscard]] std::unique_ptr<QChart> build();

/// Draws the points, as sticks or as a curve, and fits the axes to them; a zoom ends. No points
/// leave the axes as they are, and a chart without a line stays as it is.
void fill(QChart& chart, const QList<QPointF>& points, bool asSticks);

} // namespace SpectrumChart
