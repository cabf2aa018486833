// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/structureimagerequest.h"

using namespace Qt::StringLiterals;

QUrl structureImageUrl(const QString& casDigits)
{
    const QString address =
        "https://webbook.nist.gov/cgi/cbook.cgi?Struct=C"_L1 + casDigits + "&Type=Color"_L1;
    return QUrl(address, QUrl::TolerantMode);
}
