// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databasefile.h"

#include "database/speciestext.h"
#include "species/speciesfile.h"
#include "support/jsonfile.h"
#include "support/wholefile.h"

#include <QList>

#include <algorithm>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString entryKey(qsizetype index)
{
    return u"Entry%1"_s.arg(index + 1);
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

/// Why a file is of no use; written when it is not so.
DatabaseFile::Outcome outcomeOf(const DatabaseFile::Source& source)
{
    if (source.member)
        return DatabaseFile::Outcome::Written;
    return source.opened ? DatabaseFile::Outcome::SourceIsNoSpecies
                         : DatabaseFile::Outcome::SourceNotOpened;
}

/// Whether all could be used.
bool addAll(const QStringList& sources, QJsonDocument::JsonFormat format,
            DatabaseFile::Assembly& database)
{
    const QList<qsizetype> order = DatabaseFile::orderInFile(sources.size());
    for (const qsizetype index : order) {
        const DatabaseFile::Source source =
            DatabaseFile::readSource(sources.at(index), index, format);
        if (!source.member)
            return false;
        database.add(*source.member);
    }
    database.finish();
    return true;
}

} // namespace

namespace DatabaseFile {

QList<qsizetype> orderInFile(qsizetype count)
{
    QList<qsizetype> indices(count);
    std::iota(indices.begin(), indices.end(), 0);
    std::sort(indices.begin(), indices.end(),
              [](qsizetype a, qsizetype b) { return entryKey(a) < entryKey(b); });
    return indices;
}

QByteArray memberText(qsizetype index, const QJsonObject& file, QJsonDocument::JsonFormat format)
{
    QJsonObject entry = file;
    entry.remove(JsonFile::typeKey);
    return membersText({{entryKey(index), entry}}, format);
}

Source readSource(const QString& path, qsizetype index, QJsonDocument::JsonFormat format)
{
    const std::optional<QByteArray> bytes = JsonFile::bytesOf(path);
    if (!bytes)
        return {};
    if (auto member = SpeciesText::asMember(*bytes, entryKey(index), format))
        return {true, std::move(member)};
    const QJsonObject file = QJsonDocument::fromJson(*bytes).object();
    if (!SpeciesFile::isSpeciesFile(file))
        return {true, {}};
    return {true, memberText(index, file, format)};
}

Assembly::Assembly(Header head, QJsonDocument::JsonFormat textFormat, Sink pieceSink)
    : header(std::move(head))
    , format(textFormat)
    , sink(std::move(pieceSink))
{
    sink(format == QJsonDocument::Compact ? "{" : "{\n");
}

void Assembly::add(const QByteArray& member)
{
    sink(member);
    sink(format == QJsonDocument::Compact ? "," : ",\n");
}

void Assembly::finish()
{
    sink(membersText(headerMembers(header), format) +
         (format == QJsonDocument::Compact ? "}" : "\n}\n"));
}

Result write(const QString& target, const Header& header, const QStringList& sources,
             QJsonDocument::JsonFormat format)
{
    WholeFile file(target);
    Assembly database(header, format, [&file](const QByteArray& piece) { file.write(piece); });
    if (addAll(sources, format, database)) {
        const SaveResult saved = file.commit();
        const bool opened = saved != SaveResult::NotOpened;
        return {opened ? Outcome::Written : Outcome::TargetNotOpened, {}, saved};
    }
    // They are compiled in another order than that of the list, which is the person's.
    for (qsizetype i = 0; i < sources.size(); ++i) {
        const Outcome outcome = outcomeOf(readSource(sources.at(i), i, format));
        if (outcome != Outcome::Written)
            return {outcome, sources.at(i)};
    }
    return {Outcome::SourceIsNoSpecies, sources.constFirst()}; // mended by somebody in between
}

} // namespace DatabaseFile
