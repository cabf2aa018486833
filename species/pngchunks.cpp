// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/pngchunks.h"

#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

constexpr QByteArrayView signature("\x89PNG\r\n\x1a\n");

/// A chunk from its length to its checksum (ISO/IEC 15948, section 5.3).
class Chunk
{
public:
    /// The one that begins at @p position; not valid when the file ends before it does.
    Chunk(const QByteArray& png, qsizetype position)
        : all(QByteArrayView(png).sliced(position))
    {
        constexpr qsizetype frameSize = 12;
        if (all.size() < frameSize)
            return;
        const qsizetype size = frameSize + qsizetype{qFromBigEndian<quint32>(all.data())};
        whole = size <= all.size();
        all = all.first(std::min(size, all.size()));
    }

    [[nodiscard]] bool isWhole() const { return whole; }
    [[nodiscard]] QByteArrayView bytes() const { return all; }
    [[nodiscard]] QByteArrayView type() const { return all.sliced(4, 4); }

    [[nodiscard]] bool isNeeded() const
    {
        const bool isCritical = type().front() >= 'A' && type().front() <= 'Z';
        static constexpr std::array needed{"tRNS", "gAMA", "cHRM", "sRGB", "pHYs"};
        return isCritical || std::find(needed.begin(), needed.end(), type()) != needed.end();
    }

    [[nodiscard]] bool isColourProfile() const
    {
        constexpr qsizetype largestUsual = qsizetype{64} * 1024;
        return type() == "iCCP" && all.size() <= largestUsual;
    }

private:
    QByteArrayView all;
    bool whole = false;
};

} // namespace

namespace PngChunks {

bool isPng(const QByteArray& bytes)
{
    return bytes.startsWith(signature);
}

QByteArray withoutNeedless(const QByteArray& png)
{
    QByteArray kept;
    bool hasProfile = false;
    qsizetype keptUntil = 0;
    qsizetype position = signature.size();
    while (position < png.size()) {
        const Chunk chunk(png, position);
        if (!chunk.isWhole())
            break;
        const qsizetype end = position + chunk.bytes().size();
        const bool isProfile = !hasProfile && chunk.isColourProfile();
        hasProfile = hasProfile || isProfile;
        if (!chunk.isNeeded() && !isProfile) {
            kept.append(QByteArrayView(png).sliced(keptUntil, position - keptUntil));
            keptUntil = end;
        }
        position = end;
    }
    return keptUntil == 0 ? png : kept.append(QByteArrayView(png).sliced(keptUntil));
}

} // namespace PngChunks
