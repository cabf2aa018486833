// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

namespace TestSupport {

/// The checksum of gzip and PNG files.
[[nodiscard]] quint32 crc32(const QByteArray& bytes);

/// The bytes as a gzip file.
[[nodiscard]] QByteArray gzipped(const QByteArray& bytes);

/// The bytes as a zlib stream, as it stands in PNG chunks.
[[nodiscard]] QByteArray zlibStream(const QByteArray& bytes);

} // namespace TestSupport
