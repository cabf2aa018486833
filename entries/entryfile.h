// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/databasescan.h"
#include "entries/jsonscan.h"

#include <QJsonObject>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

/// The points of a spectrum record, in the order of the record.
struct RecordedPoints
{
    QList<double> energies;    ///< Photon energies in eV.
    QList<double> intensities; ///< Arbitrary units; as many as there are energies.
    /// Whether the record holds nothing else: two arrays of equal length, numbers only.
    bool complete = true;
};

/// One spectrum record in a file.
struct PlacedSpectrum
{
    QString place; ///< JSON pointer.
    int number = 1;
    QJsonObject record;
    RecordedPoints points;
};

/// One entry in a file: the species, if the file holds one, and its spectra by their numbers.
struct PlacedEntry
{
    QString place; ///< JSON pointer.
    bool hasSpecies = false;
    QJsonObject species;
    QList<PlacedSpectrum> spectra;
};

/// What a file holds, whichever of the three kinds it is of, as curators look at it. It is read
/// leniently, as the editor does; what that glosses over, rules complain about.
struct EntryFile
{
    enum class Kind { Unknown, Species, Spectrum, Database };

    QString path;
    bool opened = false;
    QString parseError; ///< Empty when the text is JSON.
    JsonScan::Oddities oddities;
    Kind kind = Kind::Unknown;
    QJsonObject object;
    QList<PlacedEntry> entries; ///< In a spectrum file, one without species.

    /// Of a large database the entries are read one by one. What is left of it, its frame, has
    /// empty objects in the place of these; and each of them is all that there is in its piece.
    QSet<QString> separateEntries;
    bool isEntryAlone = false;
    qsizetype firstEntry = 0; ///< How many entries of the database stand before those here.
};

namespace EntryFiles {

/// Whether a key names a dataset, in the editor's eyes: "Dataset1", "Dataset007".
[[nodiscard]] bool isDatasetKey(const QString& key);

/// The number in a dataset's or entry's key; leading zeros do not count.
[[nodiscard]] int numberOf(const QString& key);

/// The keys of the entries of a database, by their numbers.
[[nodiscard]] QStringList entryKeys(const QJsonObject& database);

/// The points of a record in its new or older form. Where the record is not complete, the pairs of
/// numbers that it does hold; none when its arrays differ in length, as in the editor.
[[nodiscard]] RecordedPoints pointsOf(const QJsonObject& record);

/// Reads the file at @p path; what is wrong shows in the result.
[[nodiscard]] EntryFile read(const QString& path);

/// The same from the bytes of a file.
[[nodiscard]] EntryFile fromBytes(const QString& path, const QByteArray& bytes);

/// The same from what is left of a database without the entries that are read one by one.
[[nodiscard]] EntryFile fromFrame(const QString& path, const DatabaseScan& scan);

/// The same from the text of one entry, which begins at a place in its file.
[[nodiscard]] EntryFile fromEntry(const QString& path, const QByteArray& key,
                                  const QByteArray& text, qint64 placeInFile);

} // namespace EntryFiles
