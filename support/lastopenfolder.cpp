// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/lastopenfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace {

QString key()
{
    return QStringLiteral("lastOpenFolder");
}

QSettings settings()
{
    return QSettings(QStringLiteral("Ostravel"), QStringLiteral("KORVELA"));
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
