// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// The process in which pictures other than PNG files are read: drawings and photographs of a few
/// kilobytes can make their readers work for minutes or fill the memory. It gets the bytes of the
/// picture and nothing else, gives a PNG file back, and is ended after 2 seconds of processor time,
/// or when it wants more than 256 MiB. It gives up network and files before it reads (Confinement).
namespace PictureProcess {

/// The picture as a PNG file, read by PictureTranslation. Empty when it cannot be read within the
/// limits, or when the program is missing. Waits for it.
[[nodiscard]] QByteArray toPng(const QByteArray& picture);

/// The program: beside the running one, or in the folder for such programs of the same
/// installation or build. Empty when it is in none of them.
[[nodiscard]] QString program();

} // namespace PictureProcess
