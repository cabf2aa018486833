// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
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

/// The content of a database file. Each entry is the whole object of a species file, unchanged but
/// for its "Type"; entries are numbered from 1 in the given order.
[[nodiscard]] QJsonObject assemble(const Header& header, const QList<QJsonObject>& speciesFiles);

} // namespace DatabaseAssembly
