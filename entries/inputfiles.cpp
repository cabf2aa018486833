// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/inputfiles.h"

#include "species/fileorder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

/// Names of entries that the toolkit passes over, because they are no UTF-8; shown as far as they
/// can be.
QStringList undecodableNames(const QString& folder)
{
    QStringList names;
#ifdef Q_OS_UNIX // names are Unicode elsewhere
    std::error_code error;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const QByteArray name = QByteArray::fromStdString(entry->path().filename().native());
        if (!name.isValidUtf8() && name.toLower().endsWith(".json"))
            names.append(QString::fromUtf8(name));
    }
#else
    Q_UNUSED(folder)
#endif
    return names;
}

} // namespace

InputFiles InputFiles::named(const QStringList& arguments)
{
    InputFiles files;
    for (const QString& argument : arguments) {
        if (!QFileInfo(argument).isDir()) {
            files.paths.append(argument);
            continue;
        }
        const QDir folder(argument);
        // Broken links and pipes are files of the system to the toolkit.
        const QStringList names =
            inSteppingOrder(folder.entryList({u"*.json"_s}, QDir::Files | QDir::System));
        for (const QString& name : names)
            files.paths.append(folder.filePath(name));
        const QStringList undecodable = undecodableNames(argument);
        for (const QString& name : undecodable) {
            files.problems.append(
                u"The file %1 cannot be read: its name is no UTF-8."_s.arg(folder.filePath(name)));
        }
        if (!folder.isReadable())
            files.problems.append(u"The folder %1 cannot be read."_s.arg(argument));
        else if (names.isEmpty())
            files.problems.append(u"No JSON files in the folder %1"_s.arg(argument));
    }
    return files;
}

bool InputFiles::contains(const QString& path) const
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return !canonical.isEmpty() &&
           std::any_of(paths.begin(), paths.end(), [&canonical](const QString& input) {
               return QFileInfo(input).canonicalFilePath() == canonical;
           });
}
