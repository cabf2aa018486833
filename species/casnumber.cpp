// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/casnumber.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

bool isValidCasNumber(const QString& text)
{
    static const QRegularExpression format(u"^\\d{1,7}-\\d{2}-\\d$"_s);
    if (!format.match(text).hasMatch())
        return false;

    const QStringList groups = text.split(u'-');
    const QString digits = groups.at(0) + groups.at(1);
    int sum = 0;
    int weight = 1;
    for (auto digit = digits.crbegin(); digit != digits.crend(); ++digit)
        sum += digit->digitValue() * weight++;
    return groups.at(2).toInt() == sum % 10;
}
