// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Places in JSON documents as RFC 6901 writes them: "/Dataset1/E/0"; "" is the whole document.
namespace JsonPointer {

/// The place of the member @p key of the object at @p place.
[[nodiscard]] inline QString member(const QString& place, QString key)
{
    key.replace(u'~', QLatin1StringView("~0")).replace(u'/', QLatin1StringView("~1"));
    return place + u'/' + key;
}

/// The place of an element, counted from 0, of the array at @p place.
[[nodiscard]] inline QString element(const QString& place, qsizetype index)
{
    return place + u'/' + QString::number(index);
}

} // namespace JsonPointer
