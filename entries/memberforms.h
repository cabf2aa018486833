// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"

#include <QJsonObject>
#include <QList>
#include <QString>

/// The members that objects in files have to have and can have: what the JSON Schemas say, as
/// tables.
namespace MemberForms {

enum class Kind {
    MarkedUpText, ///< A string with no tags but sub, sup and br.
    Text,         ///< A string, whatever stands in it.
    Number,       ///< Or null.
    Bool,
    SpectrumType,
    Coordinates, ///< An array of numbers or null.
    PointObjects,
    Picture,
    Day, ///< yyyy-MM-dd
    Object
};

/// What to expect, in words: "a number".
[[nodiscard]] QString nameOf(Kind kind);

/// Whether a value is of that kind, by its type alone.
[[nodiscard]] bool isOfKind(const QJsonValue& value, Kind kind);

struct Member
{
    QLatin1StringView key;
    Kind kind{};
    bool required = true;
};

/// An object in a file, and what it should look like.
struct PlacedObject
{
    QString place; ///< JSON pointer.
    QJsonObject object;
    QList<Member> members;
    /// Further keys: those with numbers, which hold objects.
    bool (*isNumberedKey)(const QString& key) = nullptr;
};

/// All objects of a file whose members have names; none of a file of unknown kind.
[[nodiscard]] QList<PlacedObject> objectsOf(const EntryFile& file);

} // namespace MemberForms
