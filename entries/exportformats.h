// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/exporteddataset.h"

#include <QByteArray>

/// Datasets for other programs. All are UTF-8 with line feeds; numbers have as many digits as it
/// takes to read the same double again.
namespace ExportFormats {

/// Comma-separated values: what is known about the dataset in lines that begin with "# ", the
/// heading, and a line for each point.
[[nodiscard]] QByteArray csv(const ExportedDataset& dataset);

/// JCAMP-DX 5.01: XYPOINTS for a curve, PEAK TABLE for a line spectrum; no line is longer than 80
/// characters.
[[nodiscard]] QByteArray jcamp(const ExportedDataset& dataset);

/// One line of JSON; every dataset has the same members, with values of the same kind or null.
[[nodiscard]] QByteArray jsonLine(const ExportedDataset& dataset);

} // namespace ExportFormats
