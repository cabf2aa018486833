// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databaseassembly.h"

#include "support/jsonfile.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

QString entryKey(int number)
{
    return u"Entry%1"_s.arg(number);
}

/// What QJsonDocument writes between the outermost braces, and the braces with their line feeds.
QByteArray membersText(const QJsonObject& object, QJsonDocument::JsonFormat format)
{
    const bool compact = format == QJsonDocument::Compact;
    const qsizetype opening = compact ? 1 : 2; // {
    const qsizetype closing = compact ? 1 : 3; // }
    const QByteArray text = QJsonDocument(object).toJson(format);
    return text.sliced(opening, text.size() - opening - closing);
}

} // namespace

namespace DatabaseAssembly {

QByteArray beginning(QJsonDocument::JsonFormat format)
{
    return format == QJsonDocument::Compact ? "{" : "{\n";
}

QList<int> entryOrder(int count)
{
    QList<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 1);
    std::sort(numbers.begin(), numbers.end(),
              [](int a, int b) { return entryKey(a) < entryKey(b); });
    return numbers;
}

QByteArray entry(int number, QJsonObject speciesFile, QJsonDocument::JsonFormat format)
{
    speciesFile.remove(JsonFile::typeKey);
    return membersText({{entryKey(number), speciesFile}}, format) +
           (format == QJsonDocument::Compact ? "," : ",\n");
}

QByteArray end(const Header& header, QJsonDocument::JsonFormat format)
{
    const QJsonObject members{
        {u"Header"_s, QJsonObject{{u"Version"_s, header.version},
                                  {u"Database"_s, header.release},
                                  {u"Title"_s, header.title},
                                  {u"Date"_s, header.date.toString(Qt::ISODate)}}},
        {JsonFile::typeKey, u"Database v1"_s},
    };
    return membersText(members, format) + (format == QJsonDocument::Compact ? "}" : "\n}\n");
}

} // namespace DatabaseAssembly
