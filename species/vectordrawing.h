// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <functional>

/// SVG drawings from elsewhere.
namespace VectorDrawing {

/// Turns a picture file in base64, which may be a drawing in its turn, into a PNG file in base64;
/// empty when it is no picture.
using PixelsOf = std::function<QString(const QString& base64)>;

/// The drawing without anything that names another file or address: processing instructions, the
/// name of the document type, and every reference that neither points into
/// the drawing nor carries a picture itself. Carried pictures are replaced by what @p pixelsOf
/// makes of them. Compressed drawings (svgz) are accepted. Empty when @p drawing is not
/// well-formed, and when it declares anything of its document type, entities above all.
[[nodiscard]] QByteArray selfContained(const QByteArray& drawing, const PixelsOf& pixelsOf);

} // namespace VectorDrawing
