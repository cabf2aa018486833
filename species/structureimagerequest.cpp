// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/structureimagerequest.h"

QUrl structureImageUrl(const QString& casDigits)
{
    const QString address = QLatin1String("https://webbook.nist.gov/cgi/cbook.cgi?Struct=C") +
                            casDigits + QLatin1String("&Type=Color");
    return QUrl(address, QUrl::TolerantMode);
}
