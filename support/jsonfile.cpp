// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/jsonfile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

using JsonFile::WriteResult;

/// No entry comes near this size; a file beyond it would only fill the memory.
constexpr qint64 mostBytes = qint64{1} << 30;

WriteResult writeInPlace(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return WriteResult::NotOpened;
    return file.write(bytes) == bytes.size() ? WriteResult::Written : WriteResult::NotWritten;
}

} // namespace

namespace JsonFile {

ReadResult read(const QString& path)
{
    ReadResult result;
    QFile file(path);
    // Opening a pipe would wait for its other end, and a device may never end.
    result.opened = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly);
    if (!result.opened || file.size() > mostBytes)
        return result;

    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    result.parsed = error.error == QJsonParseError::NoError;
    result.object = document.object();
    return result;
}

WriteResult write(const QString& path, const QJsonObject& object, QJsonDocument::JsonFormat format)
{
    const QByteArray bytes = QJsonDocument(object).toJson(format);

    const QFileInfo target(path);
    const bool isDevice = target.exists() && !target.isFile();
    QSaveFile file(path);
    if (isDevice || !file.open(QIODevice::WriteOnly))
        return writeInPlace(path, bytes);

    // On a full disk a large write() is cut short without an error, and commit() would then replace
    // the good file by a torn one; so the bytes are counted.
    if (file.write(bytes) != bytes.size())
        file.cancelWriting();
    return file.commit() ? WriteResult::Written : WriteResult::NotWritten;
}

bool isOfType(const QJsonObject& object, QLatin1String type)
{
    return object.value(typeKey).toString() == type;
}

} // namespace JsonFile
