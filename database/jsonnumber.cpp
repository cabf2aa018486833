// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/jsonnumber.h"

#include <QJsonDocument>

#include <algorithm>

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

const char* behindDigits(const char* position, const char* end)
{
    while (position < end && isDigit(*position))
        ++position;
    return position;
}

} // namespace

bool JsonNumber::isAsWritten(const char* begin, const char* end)
{
    // A number of up to fifteen digits is the shortest text for its value; the rest is about which
    // form it has.
    constexpr qsizetype safeDigits = 15;
    constexpr qsizetype mostZeros = 2; // behind the point, or an exponent is shorter
    const char* const first = *begin == '-' ? begin + 1 : begin;
    const char* const point = behindDigits(first, end);
    if (point == first || end - first > safeDigits || (*first == '0' && point - first > 1))
        return false;
    if (point == end)
        return *first != '0' || first == begin; // no "-0"
    if (*point != '.' || behindDigits(point + 1, end) != end || end[-1] == '0')
        return false; // with an exponent, or with zeros that are not written
    const char* const significant =
        std::find_if(point + 1, end, [](char digit) { return digit != '0'; });
    return significant != end && (*first != '0' || significant - point - 1 <= mostZeros);
}

QByteArray JsonNumber::rewritten(QByteArrayView number)
{
    const QByteArray array = '[' + number.toByteArray() + ']';
    const QJsonDocument document = QJsonDocument::fromJson(array);
    if (!document.isArray())
        return {};
    const QByteArray written = document.toJson(QJsonDocument::Compact);
    return written.sliced(1, written.size() - 2);
}
