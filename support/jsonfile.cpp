// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/jsonfile.h"

#include <QFile>
#include <QFileInfo>

namespace {

/// No entry comes near this size; a file beyond it would only fill the memory.
constexpr qint64 mostBytes = qint64{1} << 30;

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

    result.object = QJsonDocument::fromJson(file.readAll()).object();
    return result;
}

WriteResult write(const QString& path, const QJsonObject& object, QJsonDocument::JsonFormat format)
{
    WholeFile file(path);
    file.write(QJsonDocument(object).toJson(format));
    return file.commit();
}

bool isOfType(const QJsonObject& object, QLatin1StringView type)
{
    return object.value(typeKey).toString() == type;
}

} // namespace JsonFile
