// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/memberforms.h"

#include "entries/jsonpointer.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace MemberForms {

namespace {

const QList<Member>& speciesMembers()
{
    static const QList<Member> members{
        {"Name"_L1, Kind::MarkedUpText},
        {"Aliases"_L1, Kind::MarkedUpText},
        {"Mass"_L1, Kind::Number},
        {"Formula"_L1, Kind::MarkedUpText},
        {"InChI"_L1, Kind::MarkedUpText},
        {"CAS"_L1, Kind::MarkedUpText},
        {"PubChem"_L1, Kind::MarkedUpText},
        {"AIE"_L1, Kind::MarkedUpText},
        {"VIE"_L1, Kind::MarkedUpText},
        {"AIE_Comment"_L1, Kind::MarkedUpText},
        {"VIE_Comment"_L1, Kind::MarkedUpText},
        {"StructuralFormula"_L1, Kind::Picture, false},
    };
    return members;
}

/// What a record has depends on itself: on its type, and on the form of its points.
QList<Member> membersOfRecord(const QJsonObject& record)
{
    QList<Member> members{
        {"Title"_L1, Kind::MarkedUpText},       {"Uploader"_L1, Kind::MarkedUpText},
        {"DOI"_L1, Kind::MarkedUpText},         {"SpectType"_L1, Kind::SpectrumType},
        {"FurtherRefs"_L1, Kind::MarkedUpText}, {"T"_L1, Kind::MarkedUpText},
        {"CreatedDate"_L1, Kind::MarkedUpText}, {"FurtherComments"_L1, Kind::MarkedUpText},
        {"LineSpectrum"_L1, Kind::Bool},        {"FacilityDate"_L1, Kind::MarkedUpText},
    };
    constexpr double simulation = 4;
    if (record.value("SpectType"_L1).toDouble(-1) == simulation) {
        members.append({{"LevelOfTheory"_L1, Kind::Text},
                        {"ConvolutionFWHM"_L1, Kind::Text},
                        {"AIE"_L1, Kind::Text}});
    } else {
        members.append({{"Source"_L1, Kind::Text},
                        {"Resolution"_L1, Kind::Text},
                        {"Normalization"_L1, Kind::Text}});
    }
    if (record.contains("Spectrum"_L1))
        members.append({"Spectrum"_L1, Kind::PointObjects});
    else
        members.append({{"E"_L1, Kind::Coordinates}, {"I"_L1, Kind::Coordinates}});
    return members;
}

bool isWrittenDatasetKey(const QString& key)
{
    static const QRegularExpression expression(u"^Dataset[1-9][0-9]*$"_s);
    return expression.match(key).hasMatch();
}

bool isWrittenEntryKey(const QString& key)
{
    static const QRegularExpression expression(u"^Entry[1-9][0-9]*$"_s);
    return expression.match(key).hasMatch();
}

void appendEntry(QList<PlacedObject>& objects, const QString& place, const QJsonObject& entry,
                 const QList<Member>& members)
{
    objects.append({place, entry, members, isWrittenDatasetKey});
    if (entry.value("Species"_L1).isObject()) {
        objects.append({JsonPointer::member(place, u"Species"_s),
                        entry.value("Species"_L1).toObject(), speciesMembers()});
    }
    for (auto member = entry.begin(); member != entry.end(); ++member) {
        if (isWrittenDatasetKey(member.key()) && member.value().isObject()) {
            const QJsonObject record = member.value().toObject();
            objects.append(
                {JsonPointer::member(place, member.key()), record, membersOfRecord(record)});
        }
    }
}

void appendFrame(QList<PlacedObject>& objects, const QJsonObject& database)
{
    objects.append(
        {{},
         database,
         {{"Type"_L1, Kind::Text}, {"Header"_L1, Kind::Object}, {"Entry1"_L1, Kind::Object}},
         isWrittenEntryKey});
    if (database.value("Header"_L1).isObject()) {
        objects.append({u"/Header"_s,
                        database.value("Header"_L1).toObject(),
                        {{"Version"_L1, Kind::Text},
                         {"Database"_L1, Kind::Text},
                         {"Title"_L1, Kind::Text},
                         {"Date"_L1, Kind::Day}}});
    }
}

void appendDatabase(QList<PlacedObject>& objects, const EntryFile& file)
{
    if (!file.isEntryAlone)
        appendFrame(objects, file.object);
    for (auto member = file.object.begin(); member != file.object.end(); ++member) {
        if (isWrittenEntryKey(member.key()) && member.value().isObject() &&
            !file.separateEntries.contains(member.key())) {
            appendEntry(objects, JsonPointer::member({}, member.key()), member.value().toObject(),
                        {{"Species"_L1, Kind::Object}});
        }
    }
}

} // namespace

QString nameOf(Kind kind)
{
    switch (kind) {
    case Kind::Number:
        return u"a number"_s;
    case Kind::Bool:
        return u"true or false"_s;
    case Kind::SpectrumType:
        return u"a number from 0 to 5"_s;
    case Kind::Coordinates:
        return u"an array of numbers"_s;
    case Kind::PointObjects:
        return u"an array of points"_s;
    case Kind::Object:
        return u"an object"_s;
    case Kind::MarkedUpText:
    case Kind::Text:
    case Kind::Picture:
    case Kind::Day:
        break;
    }
    return u"a text in quotes"_s;
}

bool isOfKind(const QJsonValue& value, Kind kind)
{
    switch (kind) {
    case Kind::Number:
        return value.isDouble() || value.isNull();
    case Kind::Bool:
        return value.isBool();
    case Kind::SpectrumType:
        return value.isDouble();
    case Kind::Coordinates:
    case Kind::PointObjects:
        return value.isArray();
    case Kind::Object:
        return value.isObject();
    case Kind::MarkedUpText:
    case Kind::Text:
    case Kind::Picture:
    case Kind::Day:
        break;
    }
    return value.isString();
}

QList<PlacedObject> objectsOf(const EntryFile& file)
{
    QList<PlacedObject> objects;
    switch (file.kind) {
    case EntryFile::Kind::Species:
        appendEntry(objects, {}, file.object,
                    {{"Type"_L1, Kind::Text}, {"Species"_L1, Kind::Object}});
        break;
    case EntryFile::Kind::Spectrum:
        objects.append({{}, file.object, membersOfRecord(file.object)});
        objects.first().members.append({"Type"_L1, Kind::Text});
        break;
    case EntryFile::Kind::Database:
        appendDatabase(objects, file);
        break;
    case EntryFile::Kind::Unknown:
        break;
    }
    return objects;
}

} // namespace MemberForms
