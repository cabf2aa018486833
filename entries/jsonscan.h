// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// What a parsed JSON document no longer shows: members that stand in the text twice, of which the
/// parser keeps the last, and characters that it tolerates.
namespace JsonScan {

struct Oddities
{
    QList<QString> repeatedMembers; ///< A JSON pointer for each further time that a key stands.
    bool byteOrderMark = false;
    bool bareControlCharacter = false; ///< In a string, where JSON wants it escaped.
};

/// Looks through the text of a document, which must be well-formed. Takes time in step with its
/// length, and memory in step with the keys of the objects that are open at once.
[[nodiscard]] Oddities odditiesOf(const QByteArray& json);

} // namespace JsonScan
