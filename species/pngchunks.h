// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

namespace PngChunks {

/// Whether the bytes begin like a PNG file.
[[nodiscard]] bool isPng(const QByteArray& bytes);

/// The PNG file without the chunks that make no difference to its pixels, their colours and their
/// size. The reader would unpack what is packed in the others, however often they come.
[[nodiscard]] QByteArray withoutNeedless(const QByteArray& png);

} // namespace PngChunks
