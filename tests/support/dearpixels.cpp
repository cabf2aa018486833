// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/compression.h"
#include "tests/support/dearfiles.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QtEndian>

namespace {

QByteArray bigEndian(quint32 number)
{
    const quint32 swapped = qToBigEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&swapped), sizeof swapped);
}

QByteArray chunk(const QByteArray& type, const QByteArray& data)
{
    return bigEndian(static_cast<quint32>(data.size())) + type + data +
           bigEndian(TestSupport::crc32(type + data));
}

QByteArray pngOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray smallPng()
{
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    return pngOf(image);
}

/// The picture with further chunks behind its header.
QByteArray withChunks(const QByteArray& chunks)
{
    constexpr qsizetype headerSize = 33;
    return DearFiles::speciesFileWithPicture(smallPng().insert(headerSize, chunks));
}

/// Just below what the PNG library refuses by itself.
QByteArray nearlyEightMegabytes()
{
    return TestSupport::zlibStream(QByteArray(7'900'000, 'a'));
}

QByteArray compressedTexts(int count)
{
    const QByteArray text = chunk("zTXt", QByteArray("Comment\0\0", 9) + nearlyEightMegabytes());
    return withChunks(text.repeated(count));
}

QByteArray internationalTexts(int count)
{
    const QByteArray text =
        chunk("iTXt", QByteArray("Comment\0\1\0\0\0", 12) + nearlyEightMegabytes());
    return withChunks(text.repeated(count));
}

QByteArray plainTexts(int count)
{
    return withChunks(chunk("tEXt", QByteArray("Comment\0x", 9)).repeated(count));
}

QByteArray colourProfile(int /*size*/)
{
    return withChunks(chunk("iCCP", QByteArray("Profile\0\0", 9) + nearlyEightMegabytes()));
}

QByteArray onePixelPng(int side, QImage::Format format)
{
    QImage image(side, side, format);
    image.fill(0);
    return DearFiles::speciesFileWithPicture(pngOf(image));
}

QByteArray largePng(int side)
{
    return onePixelPng(side, QImage::Format_RGB32);
}

QByteArray largeBitmap(int side)
{
    return onePixelPng(side, QImage::Format_Mono);
}

QByteArray jpeg(int side, bool progressive)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "JPEG");
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return bytes;
}

/// Nearly as many as are read.
QByteArray someScans(int side)
{
    constexpr int count = 85;
    return DearFiles::speciesFileWithPicture(DearFiles::jpegOfScans(count, side));
}

QByteArray repeatedScans(int count)
{
    constexpr int side = 1000;
    return DearFiles::speciesFileWithPicture(DearFiles::jpegOfScans(count, side));
}

QByteArray gifOfManyFrames(int count)
{
    const QByteArray head = QByteArray::fromHex("47494638396110271027800000ff00000000ff");
    const QByteArray frame = QByteArray::fromHex("2c00000000102710270002024401003b").chopped(1);
    return DearFiles::speciesFileWithPicture(head + frame.repeated(count) + ';');
}

QByteArray xpm(int side)
{
    QByteArray bytes = "/* XPM */\nstatic char *x[] = {\n\"" + QByteArray::number(side) + ' ' +
                       QByteArray::number(side) + " 1 1\",\n\"a c red\",\n";
    bytes += QByteArray('"' + QByteArray(side, 'a') + "\",\n").repeated(side);
    return DearFiles::speciesFileWithPicture(bytes + "};\n");
}

QByteArray claimingPpm(int side)
{
    const QByteArray number = QByteArray::number(side);
    return DearFiles::speciesFileWithPicture("P6\n" + number + ' ' + number + "\n255\nabc");
}

} // namespace

namespace DearFiles {

QByteArray jpegOfScans(int more, int side)
{
    const QByteArray whole = jpeg(side, true);
    const qsizetype tables = whole.indexOf("\xff\xc4"); // between frame header and first scan
    const qsizetype scan = whole.indexOf("\xff\xda", tables);
    qsizetype end = scan + 2;
    while (whole.at(end) != '\xff' || whole.at(end + 1) == '\0')
        ++end;
    return QByteArray(whole).insert(end, whole.sliced(scan, end - scan).repeated(more));
}

const QList<Family>& pixelPictures()
{
    static const QList<Family> all{
        {"pixels/compressed texts", 60, compressedTexts},
        {"pixels/international texts", 60, internationalTexts},
        {"pixels/plain texts", 100'000, plainTexts},
        {"pixels/colour profile", 1, colourProfile},
        {"pixels/large PNG", 5'500, largePng},
        {"pixels/large bitmap", 30'000, largeBitmap},
        {"pixels/repeated scans", 500, repeatedScans},
        {"pixels/as many scans as are read", 1'800, someScans},
        {"pixels/frames", 1'000, gifOfManyFrames},
        {"pixels/XPM", 1'000, xpm},
        {"pixels/claiming PPM", 8'000, claimingPpm},
    };
    return all;
}

} // namespace DearFiles
