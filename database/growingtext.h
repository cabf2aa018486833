// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstring>
#include <utility>

/// Text that grows at its end. QByteArray is asked for room now and then only.
class GrowingText
{
public:
    explicit GrowingText(qsizetype expectedSize)
        : bytes(expectedSize, Qt::Uninitialized)
    {}

    void append(const char* begin, qsizetype count)
    {
        std::memcpy(room(count), begin, size_t(count));
        size += count;
    }
    void append(QByteArrayView text) { append(text.data(), text.size()); }
    void append(char c)
    {
        *room(1) = c;
        ++size;
    }
    void appendBlanks(qsizetype count)
    {
        std::memset(room(count), ' ', size_t(count));
        size += count;
    }
    [[nodiscard]] qsizetype length() const { return size; }
    void truncate(qsizetype length) { size = length; }
    [[nodiscard]] QByteArray taken()
    {
        bytes.truncate(size);
        return std::move(bytes);
    }

private:
    char* room(qsizetype count)
    {
        if (bytes.size() - size < count)
            bytes.resize(2 * bytes.size() + count);
        return bytes.data() + size;
    }

    QByteArray bytes;
    qsizetype size = 0;
};
