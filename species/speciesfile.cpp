// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesfile.h"

#include "support/jsonfile.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView speciesType("Species v1");
constexpr QLatin1StringView speciesKey("Species");

} // namespace

namespace SpeciesFile {

bool isSpeciesFile(const QJsonObject& content)
{
    return JsonFile::isOfType(content, speciesType);
}

bool isSpeciesFile(const QString& path)
{
    return isSpeciesFile(JsonFile::read(path).object);
}

QJsonObject species(const QJsonObject& file)
{
    return file.value(speciesKey).toObject();
}

QList<QJsonObject> datasets(const QJsonObject& file)
{
    static const QRegularExpression datasetKey(u"^Dataset\\d+$"_s);
    QList<QJsonObject> found;
    for (auto entry = file.constBegin(); entry != file.constEnd(); ++entry) {
        if (datasetKey.match(entry.key()).hasMatch())
            found.append(entry.value().toObject());
    }
    return found;
}

QJsonObject assemble(const QJsonObject& species, const QList<QJsonObject>& datasets)
{
    QJsonObject file{{JsonFile::typeKey, QString(speciesType)}, {speciesKey, species}};
    int number = 1;
    for (const QJsonObject& dataset : datasets)
        file.insert(u"Dataset%1"_s.arg(number++), dataset);
    return file;
}

} // namespace SpeciesFile
