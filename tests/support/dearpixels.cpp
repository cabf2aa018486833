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

QByteArray largeDeepPng(int side)
{
    return onePixelPng(side, QImage::Format_RGBA64);
}

QByteArray inFormat(int side, const char* format)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return DearFiles::speciesFileWithPicture(bytes);
}

QByteArray bmp(int side)
{
    return inFormat(side, "BMP");
}

QByteArray xbm(int side)
{
    return inFormat(side, "XBM");
}

QByteArray largeJpeg(int side)
{
    return inFormat(side, "JPEG");
}

/// Of colours that all have a name of four letters.
QByteArray xpmOfColours(int count)
{
    QByteArray bytes =
        "/* XPM */\nstatic char *x[] = {\n\"1 1 " + QByteArray::number(count) + " 4\",\n";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i, 36).rightJustified(4, '0');
        bytes += '"' + number + " c #" + number + "ff\",\n";
    }
    return DearFiles::speciesFileWithPicture(bytes + "\"0000\"};\n");
}

/// Numbers as text, in a picture that claims more of them.
QByteArray numbersAsText(int count)
{
    return DearFiles::speciesFileWithPicture("P3\n6000 6000\n255\n" +
                                             QByteArray("1 ").repeated(count));
}

QByteArray commentsInPpm(int count)
{
    return DearFiles::speciesFileWithPicture("P6\n" + QByteArray("#\n").repeated(count) + "1 1\n");
}

/// Small pictures one after the other, each of which claims to be the largest possible.
QByteArray icons(int count)
{
    QByteArray bytes("\0\0\1\0", 4);
    bytes += static_cast<char>(count % 256);
    bytes += static_cast<char>(count / 256);
    for (int i = 0; i < count; ++i)
        bytes += QByteArray("\0\0\0\0\1\0\x20\0\xff\xff\xff\x7f\x16\0\0\0", 16);
    return DearFiles::speciesFileWithPicture(bytes);
}

QByteArray unknownFormat(int size)
{
    return DearFiles::speciesFileWithPicture("II*\0RIFFWEBP" + QByteArray(size, '\xff'));
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
        {"pixels/as many scans as are read", 2'900, someScans},
        {"pixels/large deep PNG", 6'000, largeDeepPng},
        {"pixels/large JPEG", 6'000, largeJpeg},
        {"pixels/BMP", 840, bmp},
        {"pixels/XBM", 1'800, xbm},
        {"pixels/XPM", 1'450, xpm},
        {"pixels/XPM of colours", 100'000, xpmOfColours},
        {"pixels/claiming PPM", 6'000, claimingPpm},
        {"pixels/numbers as text", 1'000'000, numbersAsText},
        {"pixels/comments in PPM", 1'000'000, commentsInPpm},
        {"pixels/frames", 100'000, gifOfManyFrames},
        {"pixels/icons", 60'000, icons},
        {"pixels/unknown format", 2'000'000, unknownFormat},
    };
    return all;
}

} // namespace DearFiles
