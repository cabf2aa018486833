// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/lastopenfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

QString key()
{
    return u"lastOpenFolder"_s;
}

QSettings settings()
{
    return QSettings(u"Ostravel"_s, u"KORVELA"_s);
}

} // namespace

namespace LastOpenFolder {

QString path()
{
    return settings().value(key(), QDir::homePath()).toString();
}

void rememberFolderOf(const QString& file)
{
    QSettings stored = settings();
    stored.setValue(key(), QFileInfo(file).absolutePath());
}

} // namespace LastOpenFolder
