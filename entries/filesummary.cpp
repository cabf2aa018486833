// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/filesummary.h"

#include "entries/jsonpointer.h"
#include "species/fileorder.h"

#include <QFileInfo>
#include <QHash>
#include <QMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Species = FileSummary::Species;

/// Where a text stands.
struct Place
{
    QString file;
    QString pointer;
};

/// "in other.json", or in the same file "at /Entry1/Species/CAS".
QString described(const Place& place, const QString& beside)
{
    return place.file == beside ? u"at "_s + place.pointer : u"in "_s + place.file;
}

bool isSame(const Place& a, const Place& b)
{
    return a.pointer == b.pointer && (a.file == b.file || QFileInfo(a.file).absoluteFilePath() ==
                                                              QFileInfo(b.file).absoluteFilePath());
}

/// Complains about each later one of several entries with the same text. A file that was named
/// twice is no second entry.
void complainOfSame(const QList<FileSummary>& files, QString Species::*text, const QString& key,
                    const QString& what, const ComplainOfFile& complain)
{
    QHash<QString, Place> firstPlaces;
    for (const FileSummary& file : files) {
        for (const Species& species : file.species) {
            const QString& value = species.*text;
            if (value.isEmpty())
                continue;
            const Place place{file.path, JsonPointer::member(species.place, key)};
            const auto first = firstPlaces.constFind(value);
            if (first == firstPlaces.constEnd()) {
                firstPlaces.insert(value, place);
            } else if (!isSame(*first, place)) {
                complain(place.file, place.pointer,
                         u"The %1 %2 stands %3, too; each species has one entry."_s.arg(
                             what, value, described(*first, place.file)));
            }
        }
    }
}

} // namespace

FileSummary FileSummary::of(const EntryFile& file)
{
    FileSummary summary{file.path, {}};
    for (const PlacedEntry& entry : file.entries) {
        if (!entry.hasSpecies)
            continue;
        summary.species.append({JsonPointer::member(entry.place, u"Species"_s),
                                entry.species.value("CAS"_L1).toString().trimmed(),
                                entry.species.value("InChI"_L1).toString().trimmed()});
    }
    return summary;
}

namespace FolderRules {

void sameCasNumber(const QList<FileSummary>& files, const ComplainOfFile& complain)
{
    complainOfSame(files, &Species::casNumber, u"CAS"_s, u"CAS number"_s, complain);
}

void sameInchi(const QList<FileSummary>& files, const ComplainOfFile& complain)
{
    complainOfSame(files, &Species::inchi, u"InChI"_s, u"InChI"_s, complain);
}

void steppingOrder(const QList<FileSummary>& files, const ComplainOfFile& complain)
{
    QMap<QString, QStringList> namesOfFolders;
    QHash<QString, QString> paths;
    for (const FileSummary& file : files) {
        const QFileInfo info(file.path);
        namesOfFolders[info.path()].append(info.fileName());
        paths.insert(info.filePath(), file.path);
    }
    for (auto folder = namesOfFolders.begin(); folder != namesOfFolders.end(); ++folder) {
        const QStringList stepped = inSteppingOrder(*folder);
        QStringList listed = *folder;
        listed.sort();
        const auto [step, list] = std::mismatch(stepped.begin(), stepped.end(), listed.begin());
        if (step == stepped.end())
            continue;
        const QString place = folder.key() + u'/' + *step;
        complain(paths.value(place, place), {},
                 u"The editor steps to %1 where lists of the folder show %2; numbers with leading "
                 u"zeros and "
                 "names in lower case stand in one order everywhere."_s.arg(*step, *list));
    }
}

} // namespace FolderRules
