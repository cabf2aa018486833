// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/compression.h"

#include <QString>

#include <array>

namespace {

QByteArray littleEndian(quint32 number)
{
    QByteArray result;
    for (unsigned shift = 0; shift < 32; shift += 8)
        result.append(static_cast<char>((number >> shift) & 0xffU));
    return result;
}

std::array<quint32, 256> checksumTable()
{
    std::array<quint32, 256> table{};
    quint32 byte = 0;
    for (quint32& entry : table) {
        entry = byte++;
        for (int bit = 0; bit < 8; ++bit)
            entry = (entry >> 1U) ^ ((entry & 1U) != 0 ? 0xedb88320U : 0U);
    }
    return table;
}

} // namespace

namespace TestSupport {

quint32 crc32(const QByteArray& bytes)
{
    static const std::array<quint32, 256> table = checksumTable();
    quint32 checksum = 0xffffffffU;
    for (const char byte : bytes)
        checksum = (checksum >> 8U) ^ table.at((checksum ^ static_cast<quint8>(byte)) & 0xffU);
    return ~checksum;
}

QByteArray gzipped(const QByteArray& bytes)
{
    // gzip frames the deflate data of a zlib stream otherwise.
    const QByteArray deflated = zlibStream(bytes).sliced(2).chopped(4);
    return QByteArray("\x1f\x8b\x08\0\0\0\0\0\0\x03", 10) + deflated + littleEndian(crc32(bytes)) +
           littleEndian(static_cast<quint32>(bytes.size()));
}

QByteArray zlibStream(const QByteArray& bytes)
{
    return qCompress(bytes, 9).sliced(4); // begins with a length of its own
}

} // namespace TestSupport
