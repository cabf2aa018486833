// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/inputfiles.h"

#include "species/fileorder.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

/// What a folder holds of files whose names end in ".json".
struct Listing
{
    QStringList names;
    QStringList undecodable; ///< Names that are no UTF-8, as far as they can be shown.
};

/// Everything that is no folder: broken links and pipes, too, which are to be told of.
Listing listingOf(const QString& folder)
{
    Listing listing;
    listing.names = QDir(folder).entryList({u"*.json"_s}, QDir::Files | QDir::System);
#ifdef Q_OS_UNIX // the toolkit passes over odd names, and some releases of it over broken links
    const QSet<QString> known(listing.names.begin(), listing.names.end());
    std::error_code error;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const QByteArray name = QByteArray::fromStdString(entry->path().filename().native());
        std::error_code unknown;
        if (name.startsWith('.') || !name.toLower().endsWith(".json") ||
            entry->is_directory(unknown)) {
            continue;
        }
        if (!name.isValidUtf8())
            listing.undecodable.append(QString::fromUtf8(name));
        else if (!known.contains(QFile::decodeName(name)))
            listing.names.append(QFile::decodeName(name));
    }
#endif
    return listing;
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
        const Listing listing = listingOf(argument);
        const QStringList names = inSteppingOrder(listing.names);
        for (const QString& name : names)
            files.paths.append(folder.filePath(name));
        for (const QString& name : listing.undecodable) {
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
