// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/structurepicture.h"

#include "species/picturelimits.h"
#include "species/pictureprocess.h"
#include "species/pngchunks.h"

#include <QBuffer>
#include <QImageReader>

namespace {

QImage fromPng(QByteArray png)
{
    PictureLimits::limitAllocations();
    QBuffer buffer(&png);
    QImageReader reader(&buffer, "png");
    return PictureLimits::admit(reader.size()) ? reader.read() : QImage();
}

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
    if (PngChunks::isPng(bytes))
        return fromPng(PngChunks::withoutNeedless(bytes));
    QByteArray data = bytes;
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    if (QImageReader::imageFormat(&buffer).isEmpty())
        return {};
    const QByteArray png = PictureProcess::toPng(bytes);
    return png.isEmpty() ? QImage() : fromPng(png);
}

bool isAdmitted(const QImage& image)
{
    return PictureLimits::admit(image.size());
}

QPixmap fitted(const QImage& image, const QSize& size, double pixelRatio)
{
    QPixmap picture = QPixmap::fromImage(image).scaled(size * pixelRatio, Qt::KeepAspectRatio,
                                                       Qt::SmoothTransformation);
    picture.setDevicePixelRatio(pixelRatio);
    return picture;
}

} // namespace StructurePicture
