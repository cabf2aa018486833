// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QPixmap>

/// The structure image on its way into and out of files.
namespace StructurePicture {

/// The image as a PNG file in standard base64 (RFC 4648, padded, no line breaks); empty for a null
/// image.
[[nodiscard]] QString toBase64Png(const QImage& image);

/// The image that base64 text holds, in any format that the toolkit reads; null when there is none.
[[nodiscard]] QImage fromBase64(const QString& text);

/// Decodes the bytes of an image file, recognising the format from the data; null when they are no
/// image, or one that is not admitted. A PNG file, which is what entries hold, is decoded here; any
/// other one in a process of its own whose time and memory are limited.
[[nodiscard]] QImage decode(const QByteArray& bytes);

/// Whether the image has no more pixels than decode() reads, so that it can be read again.
[[nodiscard]] bool isAdmitted(const QImage& image);

/// The image as large as it fits into @p size, given in the pixels of the toolkit, with as many
/// pixels as a screen of that ratio has there: a label doubles smaller pictures, which blurs them.
[[nodiscard]] QPixmap fitted(const QImage& image, const QSize& size, double pixelRatio);

} // namespace StructurePicture
