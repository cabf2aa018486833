// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/vectordrawing.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <array>
#include <zlib.h>

using namespace Qt::StringLiterals;

namespace {

/// A drawing of this many bytes is no structural formula; it would only fill the memory.
constexpr qsizetype maxDrawingSize = qsizetype{16} * 1024 * 1024;

QByteArray uncompressed(const QByteArray& gzip)
{
    z_stream stream{};
    constexpr int gzipWindow = 15 + 16; // 32 KiB window, gzip header
    if (gzip.size() > maxDrawingSize || inflateInit2(&stream, gzipWindow) != Z_OK)
        return {};

    QByteArray input = gzip;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());

    QByteArray output;
    std::array<char, 16384> chunk{};
    int status = Z_OK;
    while (status == Z_OK && output.size() <= maxDrawingSize) {
        stream.next_out = reinterpret_cast<Bytef*>(chunk.data());
        stream.avail_out = chunk.size();
        status = inflate(&stream, Z_NO_FLUSH);
        output.append(chunk.data(), static_cast<qsizetype>(chunk.size() - stream.avail_out));
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END ? output : QByteArray();
}

/// The reference as it may stand in a self-contained drawing; empty when it must not.
QString harmlessReference(const QString& reference, const VectorDrawing::PixelsOf& pixelsOf)
{
    if (reference.startsWith(u'#'))
        return reference;
    if (!reference.startsWith("data:"_L1, Qt::CaseInsensitive))
        return {};

    const QLatin1StringView base64Mark("base64,");
    const qsizetype mark = reference.indexOf(base64Mark);
    if (mark < 0)
        return {};
    const QString pixels = pixelsOf(reference.mid(mark + base64Mark.size()));
    return pixels.isEmpty() ? QString() : QString("data:image/png;base64,"_L1 + pixels);
}

void copyStartElement(const QXmlStreamReader& reader, QXmlStreamWriter& writer,
                      const VectorDrawing::PixelsOf& pixelsOf)
{
    writer.writeStartElement(reader.qualifiedName().toString());
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        QString value = attribute.value().toString();
        const QString localName = name.section(u':', -1);
        if (localName.compare("href"_L1, Qt::CaseInsensitive) == 0) {
            value = harmlessReference(value, pixelsOf);
            if (value.isEmpty())
                continue;
        }
        writer.writeAttribute(name, value);
    }
}

} // namespace

namespace VectorDrawing {

QByteArray selfContained(const QByteArray& drawing, const PixelsOf& pixelsOf)
{
    const bool compressed = drawing.startsWith("\x1f\x8b");
    const QByteArray source = compressed ? uncompressed(drawing) : drawing;
    if (source.size() > maxDrawingSize)
        return {};

    QByteArray result;
    QXmlStreamReader reader(source);
    reader.setNamespaceProcessing(false);
    QXmlStreamWriter writer(&result);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            copyStartElement(reader, writer, pixelsOf);
            break;
        case QXmlStreamReader::EndElement:
            writer.writeEndElement();
            break;
        case QXmlStreamReader::DTD:
            // Entities can make megabytes of a few bytes.
            if (reader.text().contains(u'['))
                return {};
            break;
        case QXmlStreamReader::Characters:
            writer.writeCharacters(reader.text().toString());
            break;
        default:
            break;
        }
    }
    return reader.hasError() ? QByteArray() : result;
}

} // namespace VectorDrawing
