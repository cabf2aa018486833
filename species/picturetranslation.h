// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>

/// Pictures of all formats that the toolkit reads. Some of them make it work for minutes or fill
/// the memory, so this is for a process whose work and memory are limited; see PictureProcess.
namespace PictureTranslation {

/// Loads what reading needs of this computer: plugins for all formats, and the list of its fonts.
void prepare();

/// The picture that the bytes of a file hold; null when they hold none that PictureLimits admit. A
/// drawing is relieved of everything that names another file first, so that a picture never makes
/// the program read anything but the picture.
[[nodiscard]] QImage read(const QByteArray& bytes);

} // namespace PictureTranslation
