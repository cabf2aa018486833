// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/fileorder.h"

#include <QCollator>

#include <algorithm>

QStringList inSteppingOrder(QStringList fileNames)
{
    // A named locale on purpose: in the C locale the collator ignores both modes.
    QCollator collator(QLocale(QLocale::English, QLocale::UnitedStates));
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(fileNames.begin(), fileNames.end(), collator);
    return fileNames;
}
