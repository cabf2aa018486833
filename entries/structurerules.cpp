// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/structurerules.h"

#include "entries/jsonpointer.h"
#include "entries/memberforms.h"
#include "support/cleanedhtml.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QSet>

#include <cmath>

using namespace Qt::StringLiterals;
using MemberForms::isOfKind;
using MemberForms::Kind;
using MemberForms::Member;
using MemberForms::nameOf;
using MemberForms::PlacedObject;

namespace {

QString kindOf(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return u"null"_s;
    case QJsonValue::Bool:
        return u"true or false"_s;
    case QJsonValue::Double:
        return u"a number"_s;
    case QJsonValue::String:
        return u"a text"_s;
    case QJsonValue::Array:
        return u"an array"_s;
    case QJsonValue::Object:
        return u"an object"_s;
    case QJsonValue::Undefined:
        break;
    }
    return u"nothing"_s;
}

/// Whether an array's element is what the array is made of.
bool isElement(const QJsonValue& value, Kind kind)
{
    if (kind == Kind::Coordinates)
        return value.isDouble() || value.isNull();
    const QJsonObject point = value.toObject();
    return point.size() == 2 && point.value("E"_L1).isDouble() && point.value("I"_L1).isDouble();
}

void lookIntoArray(const QString& place, const QJsonArray& array, Kind kind,
                   const Complain& complain)
{
    qsizetype wrong = 0;
    qsizetype firstWrong = 0;
    for (qsizetype i = array.size() - 1; i >= 0; --i) {
        if (isElement(array.at(i), kind))
            continue;
        ++wrong;
        firstWrong = i;
    }
    if (wrong == 0)
        return;
    const QString expected =
        kind == Kind::Coordinates ? u"a number"_s : u"an object of the numbers \"E\" and \"I\""_s;
    complain(JsonPointer::element(place, firstWrong),
             u"This is %1 instead of %2 (%3 of %4 elements)."_s
                 .arg(kindOf(array.at(firstWrong)), expected)
                 .arg(wrong)
                 .arg(array.size()));
}

/// Calls @p look for each member that is there and has a form.
void forEachMember(const EntryFile& file,
                   const std::function<void(const QString&, const QJsonValue&, Kind)>& look)
{
    const QList<PlacedObject> objects = MemberForms::objectsOf(file);
    for (const PlacedObject& placed : objects) {
        for (const Member& member : placed.members) {
            const QJsonValue value = placed.object.value(member.key);
            if (!value.isUndefined())
                look(JsonPointer::member(placed.place, member.key), value, member.kind);
        }
    }
}

bool isNamed(const PlacedObject& placed, const QString& key)
{
    return std::any_of(placed.members.begin(), placed.members.end(),
                       [&key](const Member& member) { return member.key == key; });
}

QString withoutLeadingZeros(const QString& datasetKey)
{
    QString digits = datasetKey.sliced(int(qstrlen("Dataset")));
    while (digits.size() > 1 && digits.startsWith(u'0'))
        digits.remove(0, 1);
    return digits;
}

bool isDatasetAt(const QString& place)
{
    return EntryFiles::isDatasetKey(place.sliced(place.lastIndexOf(u'/') + 1));
}

} // namespace

namespace StructureRules {

void unreadable(const EntryFile& file, const Complain& complain)
{
    if (!file.opened)
        complain({}, u"The file cannot be read; a regular file of at most 1 GiB is expected."_s);
}

void notJson(const EntryFile& file, const Complain& complain)
{
    if (!file.parseError.isEmpty())
        complain({}, u"This is not JSON: %1."_s.arg(file.parseError));
    else if (file.oddities.bareControlCharacter)
        complain({}, u"A text holds a bare control character; JSON wants it escaped (\\n, \\t)."_s);
}

void byteOrderMark(const EntryFile& file, const Complain& complain)
{
    if (file.oddities.byteOrderMark)
        complain({}, u"The file begins with a byte order mark; JSON is UTF-8 without one."_s);
}

void unknownType(const EntryFile& file, const Complain& complain)
{
    if (!file.opened || !file.parseError.isEmpty() || file.kind != EntryFile::Kind::Unknown)
        return;
    const QJsonValue type = file.object.value("Type"_L1);
    QString found = u"There is no type"_s;
    if (type.isString())
        found = u"The type is \"%1\""_s.arg(type.toString());
    else if (!type.isUndefined())
        found = u"The type is %1"_s.arg(kindOf(type));
    complain(type.isUndefined() ? QString() : u"/Type"_s,
             found + u"; expected is \"Species v1\", \"Spectrum v1\" or \"Database v1\"."_s);
}

void missingMember(const EntryFile& file, const Complain& complain)
{
    const QList<PlacedObject> objects = MemberForms::objectsOf(file);
    for (const PlacedObject& placed : objects) {
        for (const Member& member : placed.members) {
            if (member.required && !placed.object.contains(member.key)) {
                complain(placed.place, u"The member \"%1\" is missing; expected is %2."_s.arg(
                                           member.key, nameOf(member.kind)));
            }
        }
    }
}

void unknownMember(const EntryFile& file, const Complain& complain)
{
    const QList<PlacedObject> objects = MemberForms::objectsOf(file);
    for (const PlacedObject& placed : objects) {
        const QStringList keys = placed.object.keys();
        for (const QString& key : keys) {
            const bool isNumbered = placed.isNumberedKey != nullptr && placed.isNumberedKey(key);
            if (!isNumbered && !isNamed(placed, key)) {
                complain(JsonPointer::member(placed.place, key),
                         u"The member \"%1\" does not belong here; the editor %2."_s.arg(
                             key, EntryFiles::isDatasetKey(key) ? u"saves it under another number"_s
                                                                : u"does not keep it"_s));
            }
        }
    }
}

void repeatedMember(const EntryFile& file, const Complain& complain)
{
    for (const QString& place : file.oddities.repeatedMembers) {
        if (!isDatasetAt(place))
            complain(place, u"This member stands twice in its object; only the last is read."_s);
    }
}

void repeatedDataset(const EntryFile& file, const Complain& complain)
{
    for (const QString& place : file.oddities.repeatedMembers) {
        if (isDatasetAt(place))
            complain(place, u"This dataset number stands twice; only the last is read."_s);
    }
    for (const PlacedEntry& entry : file.entries) {
        QSet<QString> numbers;
        for (const PlacedSpectrum& spectrum : entry.spectra) {
            if (spectrum.place.isEmpty())
                continue;
            const QString key = spectrum.place.sliced(spectrum.place.lastIndexOf(u'/') + 1);
            const QString number = withoutLeadingZeros(key);
            if (numbers.contains(number)) {
                complain(spectrum.place,
                         u"Another dataset has the number %1, too; each has one of its own."_s.arg(
                             number));
            }
            numbers.insert(number);
        }
    }
}

void wrongKind(const EntryFile& file, const Complain& complain)
{
    forEachMember(file, [&](const QString& place, const QJsonValue& value, Kind kind) {
        if (!isOfKind(value, kind))
            complain(place, u"This is %1 instead of %2."_s.arg(kindOf(value), nameOf(kind)));
        else if (kind == Kind::Coordinates || kind == Kind::PointObjects)
            lookIntoArray(place, value.toArray(), kind, complain);
    });
    const QList<PlacedObject> objects = MemberForms::objectsOf(file);
    for (const PlacedObject& placed : objects) {
        for (auto member = placed.object.begin(); member != placed.object.end(); ++member) {
            if (placed.isNumberedKey != nullptr && placed.isNumberedKey(member.key()) &&
                !member.value().isObject() && !isNamed(placed, member.key())) {
                complain(JsonPointer::member(placed.place, member.key()),
                         u"This is %1 instead of an object."_s.arg(kindOf(member.value())));
            }
        }
    }
}

void spectrumType(const EntryFile& file, const Complain& complain)
{
    constexpr double last = 5;
    forEachMember(file, [&](const QString& place, const QJsonValue& value, Kind kind) {
        const double type = value.toDouble();
        if (kind != Kind::SpectrumType || !value.isDouble() ||
            (type >= 0 && type <= last && type == std::floor(type)))
            return;
        complain(place, u"The spectrum type is %1; the types have the numbers 0 to 5."_s.arg(type));
    });
}

void foreignTags(const EntryFile& file, const Complain& complain)
{
    forEachMember(file, [&](const QString& place, const QJsonValue& value, Kind kind) {
        const QString text = value.toString();
        if (kind == Kind::MarkedUpText && text.contains(u'<') &&
            CleanedHtml::withoutForeignTags(text) != text) {
            complain(place, u"The text holds other tags than <sub>, <sup> and <br>, which are "
                            "removed on saving."_s);
        }
    });
}

void databaseDate(const EntryFile& file, const Complain& complain)
{
    static const QRegularExpression day(u"^[0-9]{4}-[0-9]{2}-[0-9]{2}$"_s);
    forEachMember(file, [&](const QString& place, const QJsonValue& value, Kind kind) {
        if (kind == Kind::Day && value.isString() && !day.match(value.toString()).hasMatch())
            complain(place, u"The date is not of the form yyyy-MM-dd."_s);
    });
}

void pictureForm(const EntryFile& file, const Complain& complain)
{
    // The first eleven digits are those of every PNG file.
    static const QRegularExpression png(
        u"^(iVBORw0KGgoA([A-Za-z0-9+/]{4})*+([A-Za-z0-9+/]{3}=|[A-Za-z0-9+/]{2}==)?)?$"_s);
    forEachMember(file, [&](const QString& place, const QJsonValue& value, Kind kind) {
        if (kind == Kind::Picture && value.isString() && !png.match(value.toString()).hasMatch()) {
            complain(place, u"The picture is no PNG file in base64 with padding and without line "
                            "breaks."_s);
        }
    });
}

} // namespace StructureRules
