// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/testpicture.h"

#include <QBuffer>

namespace TestSupport {

QImage plainPicture(const QColor& colour)
{
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

QByteArray encoded(const QImage& picture, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return bytes;
}

} // namespace TestSupport
