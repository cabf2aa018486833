// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/structurepicture.h"

#include "species/vectordrawing.h"

#include <QBuffer>
#include <QImageReader>

namespace {

/// Pictures of 6000 x 6000 pixels are read, at 16 bits a colour, too: what could be pasted has to
/// be there when the entry is opened again.
constexpr int mostMebibytes = 280;

} // namespace

namespace StructurePicture {

QString toBase64Png(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return QString::fromLatin1(bytes.toBase64());
}

QImage fromBase64(const QString& text)
{
    return decode(QByteArray::fromBase64(text.toUtf8()));
}

QImage decode(const QByteArray& bytes)
{
    QImageReader::setAllocationLimit(mostMebibytes);
    QByteArray data = bytes;
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader(&buffer).format();
    if (!format.startsWith("svg"))
        return QImage::fromData(bytes);

    const auto pixelsOf = [](const QString& base64) { return toBase64Png(fromBase64(base64)); };
    return QImage::fromData(VectorDrawing::selfContained(bytes, pixelsOf));
}

} // namespace StructurePicture
