// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

class QMimeData;
class SpectrumChart;

/// A chart as it is pasted into talks and papers.
namespace ChartPicture {

/// The chart that a view shows, on white and without what the view adds to it: as pixels at twice
/// its size (an image, and "image/png") and as a drawing ("image/svg+xml").
[[nodiscard]] std::unique_ptr<QMimeData> of(SpectrumChart& chart);

/// Puts it on the clipboard.
void copy(SpectrumChart& chart);

} // namespace ChartPicture
