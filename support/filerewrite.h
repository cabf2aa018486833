// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filedescriptor.h"

#include <QByteArray>

/// What a file is to hold: another file's content or bytes in memory (Unix only).
struct FileContent
{
    const FileDescriptor& file; ///< Not open when the bytes are in memory.
    QByteArray bytes;
    qint64 size = 0;
};

enum class RewriteOutcome {
    Done,
    Untouched, ///< It failed, and the old content is there.
    Torn       ///< It failed, and so did putting the old content back.
};

/// Gives the open @p file a new content in its place. Room is reserved first, nothing is cut off
/// before the end, and what was there is put back when it fails; @p error then has the number.
[[nodiscard]] RewriteOutcome rewrite(const FileDescriptor& file, const FileContent& content,
                                     int& error);
