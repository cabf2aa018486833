// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/dearfiles.h"

#include <QString>

namespace DearFiles {

const QList<Family>& families()
{
    static const QList<Family> all =
        drawings() + pixelPictures() + texts() + writings() + documents();
    return all;
}

QByteArray speciesFileWithPicture(const QByteArray& picture)
{
    return R"({"Type": "Species v1", "Species": {"Name": "x", "StructuralFormula": ")" +
           picture.toBase64() + "\"}}";
}

} // namespace DearFiles
