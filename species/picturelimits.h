// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImageReader>
#include <QSize>

/// What a structure image may be, whichever way it comes in: what can be put in can be read again.
namespace PictureLimits {

/// 16 bits for each of four colours: no format of picture files takes more.
inline constexpr int bytesPerPixel = 8;

/// The memory for one picture.
inline constexpr int mostMebibytes = 280;

/// Rather more than 6000 x 6000.
inline constexpr qint64 mostPixels = qint64{mostMebibytes} * 1024 * 1024 / bytesPerPixel;

/// Pixels; the library for PNG neither writes nor reads a longer side.
inline constexpr int longestSide = 1'000'000;

/// The longest side of a drawing; larger ones are drawn smaller.
inline constexpr int longestDrawnSide = 2000;

[[nodiscard]] inline bool admit(QSize size)
{
    return qint64{size.width()} * size.height() <= mostPixels && size.width() <= longestSide &&
           size.height() <= longestSide;
}

/// Sets the toolkit's own limit to that of one picture.
inline void limitAllocations()
{
    QImageReader::setAllocationLimit(mostMebibytes);
}

} // namespace PictureLimits
