// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/inputfiles.h"

#include "species/fileorder.h"

#include <QDir>

using namespace Qt::StringLiterals;

InputFiles InputFiles::named(const QStringList& arguments)
{
    InputFiles files;
    for (const QString& argument : arguments) {
        if (!QFileInfo(argument).isDir()) {
            files.paths.append(argument);
            continue;
        }
        const QDir folder(argument);
        const QStringList names = inSteppingOrder(folder.entryList({u"*.json"_s}, QDir::Files));
        for (const QString& name : names)
            files.paths.append(folder.filePath(name));
        if (names.isEmpty())
            files.emptyFolders.append(argument);
    }
    return files;
}
