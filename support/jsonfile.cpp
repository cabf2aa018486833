// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/jsonfile.h"

#include <QFile>
#include <QSaveFile>

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

    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return WriteResult::NotOpened;

    // On a full disk a large write() is cut short without an error and commit() would then replace
    // the good file by a torn one, so the count decides.
    if (file.write(bytes) != bytes.size())
        file.cancelWriting();
    return file.commit() ? WriteResult::Written : WriteResult::NotWritten;
}

} // namespace JsonFile
