// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databaseassembly.h"

#include "support/jsonfile.h"

namespace DatabaseAssembly {

QJsonObject assemble(const Header& header, const QList<QJsonObject>& speciesFiles)
{
    QJsonObject database{
        {JsonFile::typeKey, QStringLiteral("Database v1")},
        {QStringLiteral("Header"),
         QJsonObject{{QStringLiteral("Version"), header.version},
                     {QStringLiteral("Database"), header.release},
                     {QStringLiteral("Title"), header.title},
                     {QStringLiteral("Date"), header.date.toString(Qt::ISODate)}}},
    };
    int number = 1;
    for (QJsonObject entry : speciesFiles) {
        entry.remove(JsonFile::typeKey);
        database.insert(QStringLiteral("Entry%1").arg(number++), entry);
    }
    return database;
}

} // namespace DatabaseAssembly
