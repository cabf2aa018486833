// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArrayView>

namespace JpegScans {

/// Each scan of a JPEG file goes over the whole picture. Ten are usual where it comes in stages,
/// and the finest stages that anybody asks for are some dozens.
inline constexpr int most = 100;

/// The number of scans in a JPEG file; 0 when the bytes begin like none.
[[nodiscard]] int count(QByteArrayView jpeg);

} // namespace JpegScans
