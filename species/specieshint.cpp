// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/specieshint.h"

#include "species/casnumber.h"

#include <QCoreApplication>
#include <QVariant>

#include <cmath>

namespace SpeciesHint {

QString aboutCasNumber(const QString& text)
{
    const QString number = text.trimmed();
    if (number.isEmpty() || isValidCasNumber(number))
        return {};
    return QCoreApplication::translate(
        "SpeciesHint", "This is no CAS number: its form or its check digit is wrong.");
}

QString aboutMass(const QString& text)
{
    if (text.trimmed().isEmpty())
        return {};
    bool isNumber = false;
    const double mass = QVariant(text).toDouble(&isNumber); // as it is read on saving
    if (isNumber && std::isfinite(mass))
        return {};
    return QCoreApplication::translate(
        "SpeciesHint", "This is no number and will be saved as 0. A dot marks the decimals.");
}

} // namespace SpeciesHint
