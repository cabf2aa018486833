// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// SVG drawings from elsewhere.
namespace VectorDrawing {

/// The drawing without anything that names another file or address: processing instructions, the
/// document type with its entities (expanded first), and every reference that neither points into
/// the drawing nor carries a picture itself. Compressed drawings (svgz) are accepted. Empty when
/// @p drawing is not well-formed.
[[nodiscard]] QByteArray selfContained(const QByteArray& drawing);

} // namespace VectorDrawing
