// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QDate>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QString>

/// The database file: a header and one entry for each species file.
namespace DatabaseAssembly {

struct Header
{
    QString version;
    QString release; ///< Data release; stands under the key "Database".
    QString title;
    QDate date; ///< Day of writing.
};

/// The database file in pieces, so that only one entry at a time need be in memory: the beginning,
/// the entries in entryOrder(), and the end. Together they are the text that QJsonDocument would
/// write.
[[nodiscard]] QByteArray beginning(QJsonDocument::JsonFormat format);

/// The numbers 1 to @p count in the order of their entries in the file, which is that of the keys
/// as text: "Entry10" before "Entry2".
[[nodiscard]] QList<int> entryOrder(int count);

/// An entry is the whole object of a species file, unchanged but for its "Type".
[[nodiscard]] QByteArray entry(int number, QJsonObject speciesFile,
                               QJsonDocument::JsonFormat format);

[[nodiscard]] QByteArray end(const Header& header, QJsonDocument::JsonFormat format);

} // namespace DatabaseAssembly
