// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/wholefile.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <optional>

/// Whole JSON files: read at once, written whole or not at all.
namespace JsonFile {

/// What stands in the regular file at @p path; nothing when it cannot be opened for reading. A file
/// that is larger than any entry is taken for an empty one.
[[nodiscard]] std::optional<QByteArray> bytesOf(const QString& path);

struct ReadResult
{
    bool opened = false; ///< The file could be opened for reading.
    QJsonObject object;  ///< The top-level object; empty unless all is one well-formed document.
};

/// Reads the regular file at @p path whole. Never fails loudly: whatever is wrong shows in the
/// result.
[[nodiscard]] ReadResult read(const QString& path);

using WriteResult = WholeFile::Result;

/// Writes @p object to @p path as UTF-8, in the way of WholeFile.
[[nodiscard]] WriteResult write(const QString& path, const QJsonObject& object,
                                QJsonDocument::JsonFormat format);

/// Every file says of itself what it is under this key.
constexpr QLatin1StringView typeKey("Type");

/// Whether the object says that it is of the given type (case-sensitive).
[[nodiscard]] bool isOfType(const QJsonObject& object, QLatin1StringView type);

} // namespace JsonFile
