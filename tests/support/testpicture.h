// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QImage>

namespace TestSupport {

/// 30 by 20 pixels of one colour.
[[nodiscard]] QImage plainPicture(const QColor& colour);

/// The picture as an image file.
[[nodiscard]] QByteArray encoded(const QImage& picture, const char* format = "PNG");

} // namespace TestSupport
