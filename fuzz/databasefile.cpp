// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Species files compiled into a database: every entry is its file without "Type".

#include "database/databasefile.h"

#include "database/speciestext.h"
#include "fuzz/fuzztarget.h"
#include "species/speciesfile.h"

#include <QJsonDocument>

#include <utility>

using namespace Qt::StringLiterals;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QList<QJsonObject> files;
    const auto format = size % 2 == 0 ? QJsonDocument::Compact : QJsonDocument::Indented;
    const QList<QByteArray> documents = Fuzz::bytes(data, size).split('\0');
    for (const QByteArray& document : documents) {
        const QJsonObject file = QJsonDocument::fromJson(document).object();
        const auto copied = SpeciesText::asMember(document, u"Entry1"_s, format);
        Fuzz::require(!copied || (SpeciesFile::isSpeciesFile(file) &&
                                  *copied == DatabaseFile::memberText(0, file, format)),
                      "text that is copied is what the toolkit writes");
        if (SpeciesFile::isSpeciesFile(file))
            files.append(file);
    }
    const DatabaseFile::Header header{u"1.0"_s, u"3.0"_s, u"Title"_s, QDate(2026, 1, 2)};
    QByteArray text;
    DatabaseFile::Assembly assembly(header, format,
                                    [&text](const QByteArray& piece) { text += piece; });
    for (const qsizetype index : DatabaseFile::orderInFile(files.size()))
        assembly.add(DatabaseFile::memberText(index, files.at(index), format));
    assembly.finish();

    const QJsonObject database = QJsonDocument::fromJson(text).object();
    Fuzz::require(text == QJsonDocument(database).toJson(format), "the pieces fit");
    Fuzz::require(database.size() == files.size() + 2, "one entry a file, a header and a type");
    int number = 1;
    for (QJsonObject file : std::as_const(files)) {
        file.remove("Type"_L1);
        Fuzz::require(database.value(u"Entry%1"_s.arg(number++)).toObject() == file,
                      "an entry is its file without the type");
    }
    return 0;
}
