// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/applicationicon.h"

#include <QApplication>
#include <QIcon>

using namespace Qt::StringLiterals;

void setApplicationIcon()
{
    QApplication::setWindowIcon(QIcon(u":/icons/korvela_entry.ico"_s));
}
