// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonDocument>
#include <QJsonObject>

/// Whole JSON files: read at once, written whole or not at all.
namespace JsonFile {

struct ReadResult
{
    bool opened = false; ///< The file could be opened for reading.
    bool parsed = false; ///< Its bytes are one well-formed JSON document.
    QJsonObject object;  ///< The top-level object; empty when there is none.
};

/// Reads the regular file at @p path whole. Never fails loudly: whatever is wrong shows in the
/// result.
[[nodiscard]] ReadResult read(const QString& path);

enum class WriteResult {
    Written,
    NotOpened, ///< The file could not be opened for writing.
    NotWritten ///< Opened, but not all bytes could be stored; an existing file is as it was.
};

/// Writes @p object to @p path as UTF-8. An existing file keeps its permissions, a symbolic link
/// stays one, and the old content is replaced only once the new one is completely on the disk.
/// Where no new file can be made beside the target (a writable file in a read-only folder, a
/// device), the target is written in place.
[[nodiscard]] WriteResult write(const QString& path, const QJsonObject& object,
                                QJsonDocument::JsonFormat format);

/// Every file says of itself what it is under this key.
constexpr QLatin1String typeKey("Type");

/// Whether the object says that it is of the given type (case-sensitive).
[[nodiscard]] bool isOfType(const QJsonObject& object, QLatin1String type);

} // namespace JsonFile
