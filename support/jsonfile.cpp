// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/jsonfile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

using JsonFile::WriteResult;

/// For devices and pipes, which must not be replaced by a file.
WriteResult writeInPlace(const QString& path, const QByteArray& bytes)
{
    QFile device(path);
    if (!device.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return WriteResult::NotOpened;
    return device.write(bytes) == bytes.size() ? WriteResult::Written : WriteResult::NotWritten;
}

WriteResult writeWhole(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return WriteResult::NotOpened;

    // On a full disk a large write() is cut short without an error and commit() would then replace
    // the good file by a torn one; written in place, commit() even succeeds. So the bytes are
    // counted.
    const bool complete = file.write(bytes) == bytes.size() && file.flush();
    if (!complete)
        file.cancelWriting();
    return file.commit() && complete ? WriteResult::Written : WriteResult::NotWritten;
}

} // namespace

namespace JsonFile {

ReadResult read(const QString& path)
{
    ReadResult result;
    QFile file(path);
    result.opened = file.open(QIODevice::ReadOnly);
    if (!result.opened)
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
    const bool isDevice = target.exists() && !target.isFile() && !target.isDir();
    return isDevice ? writeInPlace(path, bytes) : writeWhole(path, bytes);
}

} // namespace JsonFile
