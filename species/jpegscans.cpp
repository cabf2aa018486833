// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/jpegscans.h"

#include <QtEndian>

namespace {

// The second bytes of markers (ITU-T T.81, table B.1).
constexpr quint8 startOfScan = 0xda;
constexpr quint8 endOfImage = 0xd9;

/// Whether the byte behind 0xff makes a marker with a length of it, other than what stands among
/// the data of a scan.
bool beginsSegment(quint8 code)
{
    constexpr quint8 firstRestart = 0xd0;
    constexpr quint8 startOfImage = 0xd8;
    const bool isAlone = code >= firstRestart && code <= startOfImage;
    return code != 0 && code != 0xff && !isAlone;
}

} // namespace

namespace JpegScans {

int count(QByteArrayView jpeg)
{
    if (!jpeg.startsWith("\xff\xd8"))
        return 0;
    constexpr qsizetype markerSize = 2;
    int scans = 0;
    qsizetype position = markerSize;
    while (position + 2 * markerSize <= jpeg.size()) {
        const auto code = static_cast<quint8>(jpeg.at(position + 1));
        if (static_cast<quint8>(jpeg.at(position)) != 0xff || !beginsSegment(code)) {
            ++position;
            continue;
        }
        if (code == endOfImage)
            break;
        scans += code == startOfScan ? 1 : 0;
        position += markerSize + qFromBigEndian<quint16>(jpeg.sliced(position + markerSize).data());
    }
    return scans;
}

} // namespace JpegScans
