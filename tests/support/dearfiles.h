// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>

/// Small species files that cost much time or memory, or did so once: each family a few lines of
/// generator, with the size as a parameter so that relatives can be tried, too.
namespace DearFiles {

struct Family
{
    const char* name;
    int size; ///< What the family is tried with; what it counts differs from family to family.
    QByteArray (*make)(int size); ///< The species file.
};

[[nodiscard]] const QList<Family>& families();

/// Those whose structure image is a drawing, those whose is made of pixels, and those without one:
/// texts and amounts, texts of 3 MB of which every few characters are dear, and odd JSON.
[[nodiscard]] const QList<Family>& drawings();
[[nodiscard]] const QList<Family>& pixelPictures();
[[nodiscard]] const QList<Family>& texts();
[[nodiscard]] const QList<Family>& writings();
[[nodiscard]] const QList<Family>& documents();

/// A species file with this structure image and nothing else.
[[nodiscard]] QByteArray speciesFileWithPicture(const QByteArray& picture);

/// A JPEG file that comes in stages, with so many more of them, which repeat the first.
[[nodiscard]] QByteArray jpegOfScans(int more, int side = 90);

} // namespace DearFiles
