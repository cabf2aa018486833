// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/picturetranslation.h"

#include "species/jpegscans.h"
#include "species/picturelimits.h"
#include "species/pngchunks.h"
#include "species/vectordrawing.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The picture inside a drawing as PNG, both in base64.
QString pixelsOf(const QString& base64)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    PictureTranslation::read(QByteArray::fromBase64(base64.toUtf8())).save(&buffer, "PNG");
    return QString::fromLatin1(png.toBase64());
}

QImage readDrawing(const QByteArray& bytes)
{
    QByteArray drawing = VectorDrawing::selfContained(bytes, pixelsOf);
    QBuffer buffer(&drawing);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    // What claims to be larger than any sheet of paper is no structural formula.
    constexpr int longestClaimedSide = 10 * PictureLimits::longestDrawnSide;
    const int longestSide = std::max(size.width(), size.height());
    if (!size.isValid() || longestSide > longestClaimedSide)
        return {};
    if (longestSide > PictureLimits::longestDrawnSide) {
        const QSize square(PictureLimits::longestDrawnSide, PictureLimits::longestDrawnSide);
        reader.setScaledSize(size.scaled(square, Qt::KeepAspectRatio));
    }
    return reader.read();
}

} // namespace

namespace PictureTranslation {

void prepare()
{
    QBuffer nothing;
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray& format : formats)
        static_cast<void>(QImageReader(&nothing, format).canRead());
    QImage letter(1, 1, QImage::Format_ARGB32_Premultiplied);
    QPainter(&letter).drawText(0, 1, u"a"_s);
}

QImage read(const QByteArray& bytes)
{
    PictureLimits::limitAllocations();
    QByteArray data = PngChunks::isPng(bytes) ? PngChunks::withoutNeedless(bytes) : bytes;
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    if (reader.format().startsWith("svg"))
        return readDrawing(bytes);
    if (!PictureLimits::admit(reader.size()) || JpegScans::count(bytes) > JpegScans::most)
        return {};
    const QImage picture = reader.read();
    return PictureLimits::admit(picture.size()) ? picture : QImage();
}

} // namespace PictureTranslation
