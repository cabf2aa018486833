// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databasefile.h"

#include "species/speciesfile.h"
#include "support/jsonfile.h"
#include "support/wholefile.h"

#include <QList>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

QString entryKey(qsizetype index)
{
    return u"Entry%1"_s.arg(index + 1);
}

QList<qsizetype> indicesInOrderOfKeys(qsizetype count)
{
    QList<qsizetype> indices(count);
    std::iota(indices.begin(), indices.end(), 0);
    std::sort(indices.begin(), indices.end(),
              [](qsizetype a, qsizetype b) { return entryKey(a) < entryKey(b); });
    return indices;
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

QJsonObject headerMembers(const DatabaseFile::Header& header)
{
    return {
        {u"Header"_s, QJsonObject{{u"Version"_s, header.version},
                                  {u"Database"_s, header.release},
                                  {u"Title"_s, header.title},
                                  {u"Date"_s, header.date.toString(Qt::ISODate)}}},
        {JsonFile::typeKey, u"Database v1"_s},
    };
}

/// Says in @p problem why there is nothing.
std::optional<QJsonObject> readSource(const QString& path, DatabaseFile::Outcome& problem)
{
    const JsonFile::ReadResult file = JsonFile::read(path);
    if (SpeciesFile::isSpeciesFile(file.object))
        return file.object;
    problem = file.opened ? DatabaseFile::Outcome::SourceIsNoSpecies
                          : DatabaseFile::Outcome::SourceNotOpened;
    return {};
}

} // namespace

namespace DatabaseFile {

bool assemble(const Header& header, qsizetype count, const EntryAt& entryAt,
              QJsonDocument::JsonFormat format, const Sink& sink)
{
    const bool compact = format == QJsonDocument::Compact;
    sink(compact ? "{" : "{\n");
    const QList<qsizetype> indices = indicesInOrderOfKeys(count);
    for (const qsizetype index : indices) {
        std::optional<QJsonObject> entry = entryAt(index);
        if (!entry)
            return false;
        entry->remove(JsonFile::typeKey);
        sink(membersText({{entryKey(index), *entry}}, format) + (compact ? "," : ",\n"));
    }
    sink(membersText(headerMembers(header), format) + (compact ? "}" : "\n}\n"));
    return true;
}

Result write(const QString& target, const Header& header, const QStringList& sources,
             QJsonDocument::JsonFormat format)
{
    Outcome problem = Outcome::Written;
    WholeFile database(target);
    const bool assembled = assemble(
        header, sources.size(),
        [&](qsizetype index) { return readSource(sources.at(index), problem); }, format,
        [&database](const QByteArray& piece) { database.write(piece); });
    if (assembled) {
        const SaveResult saved = database.commit();
        const bool opened = saved != SaveResult::NotOpened;
        return {opened ? Outcome::Written : Outcome::TargetNotOpened, {}, saved};
    }
    // They are compiled in another order than that of the list, which is the person's.
    for (const QString& source : sources) {
        if (!readSource(source, problem))
            return {problem, source};
    }
    return {problem, sources.constFirst()}; // mended by somebody in between
}

} // namespace DatabaseFile
