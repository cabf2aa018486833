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

std::optional<QByteArray> bytesOf(const QString& path)
{
    QFile file(path);
    // Opening a pipe would wait for its other end, and a device may never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.size() > mostBytes ? QByteArray() : file.readAll();
}

ReadResult read(const QString& path)
{
    const std::optional<QByteArray> bytes = bytesOf(path);
    if (!bytes)
        return {};
    return {true, QJsonDocument::fromJson(*bytes).object()};
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
