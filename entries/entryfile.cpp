// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/entryfile.h"

#include "entries/jsonpointer.h"
#include "support/jsonfile.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// No file comes near this size; one beyond it would only fill the memory.
constexpr qint64 mostBytes = qint64{1} << 30;

void take(RecordedPoints& points, const QJsonValue& energy, const QJsonValue& intensity)
{
    if (!energy.isDouble() || !intensity.isDouble()) {
        points.complete = false;
        return;
    }
    points.energies.append(energy.toDouble());
    points.intensities.append(intensity.toDouble());
}

RecordedPoints olderPoints(const QJsonArray& elements)
{
    RecordedPoints points;
    for (const QJsonValueConstRef element : elements) {
        const QJsonObject point = element.toObject();
        take(points, point.value("E"_L1), point.value("I"_L1));
    }
    return points;
}

EntryFile::Kind kindOf(const QJsonObject& object)
{
    if (JsonFile::isOfType(object, "Species v1"_L1))
        return EntryFile::Kind::Species;
    if (JsonFile::isOfType(object, "Spectrum v1"_L1))
        return EntryFile::Kind::Spectrum;
    if (JsonFile::isOfType(object, "Database v1"_L1))
        return EntryFile::Kind::Database;
    return EntryFile::Kind::Unknown;
}

PlacedSpectrum spectrumAt(const QString& place, int number, const QJsonObject& record)
{
    return {place, number, record, EntryFiles::pointsOf(record)};
}

PlacedEntry entryAt(const QString& place, const QJsonObject& object)
{
    PlacedEntry entry{
        place, object.value("Species"_L1).isObject(), object.value("Species"_L1).toObject(), {}};
    for (auto member = object.begin(); member != object.end(); ++member) {
        if (!EntryFiles::isDatasetKey(member.key()) || !member.value().isObject())
            continue;
        entry.spectra.append(spectrumAt(JsonPointer::member(place, member.key()),
                                        EntryFiles::numberOf(member.key()),
                                        member.value().toObject()));
    }
    std::stable_sort(entry.spectra.begin(), entry.spectra.end(),
                     [](const auto& a, const auto& b) { return a.number < b.number; });
    return entry;
}

QList<PlacedEntry> entriesOfDatabase(const QJsonObject& object)
{
    const QStringList keys = EntryFiles::entryKeys(object);
    QList<PlacedEntry> entries;
    for (const QString& key : keys)
        entries.append(entryAt(JsonPointer::member({}, key), object.value(key).toObject()));
    return entries;
}

QList<PlacedEntry> entriesOf(EntryFile::Kind kind, const QJsonObject& object)
{
    switch (kind) {
    case EntryFile::Kind::Species:
        return {entryAt({}, object)};
    case EntryFile::Kind::Spectrum:
        return {{{}, false, {}, {spectrumAt({}, 1, object)}}};
    case EntryFile::Kind::Database:
        return entriesOfDatabase(object);
    case EntryFile::Kind::Unknown:
        break;
    }
    return {};
}

EntryFile unparsed(const QString& path, const QJsonParseError& error, qint64 offset)
{
    EntryFile file;
    file.path = path;
    file.opened = true;
    file.parseError = u"%1 (at byte %2)"_s.arg(error.errorString()).arg(offset);
    return file;
}

EntryFile parsed(const QString& path, const QByteArray& bytes,
                 const std::function<qint64(qint64)>& placeInFile)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return unparsed(path, error, placeInFile(error.offset));
    EntryFile file;
    file.path = path;
    file.opened = true;
    file.oddities = JsonScan::odditiesOf(bytes);
    file.object = document.object();
    file.kind = kindOf(file.object);
    file.entries = entriesOf(file.kind, file.object);
    return file;
}

} // namespace

namespace EntryFiles {

bool isDatasetKey(const QString& key)
{
    static const QRegularExpression datasetKey(u"^Dataset\\d+$"_s);
    return datasetKey.match(key).hasMatch();
}

int numberOf(const QString& key)
{
    const auto digits = std::find_if(key.begin(), key.end(), [](QChar c) { return c.isDigit(); });
    return key.sliced(digits - key.begin()).toInt();
}

QStringList entryKeys(const QJsonObject& database)
{
    static const QRegularExpression entryKey(u"^Entry[1-9][0-9]*$"_s);
    QList<std::pair<int, QString>> keys;
    for (auto member = database.begin(); member != database.end(); ++member) {
        if (member.value().isObject() && entryKey.match(member.key()).hasMatch())
            keys.append({numberOf(member.key()), member.key()});
    }
    std::sort(keys.begin(), keys.end());
    QStringList sorted;
    for (const auto& [number, key] : std::as_const(keys))
        sorted.append(key);
    return sorted;
}

RecordedPoints pointsOf(const QJsonObject& record)
{
    if (record.contains("Spectrum"_L1))
        return olderPoints(record.value("Spectrum"_L1).toArray());
    const QJsonArray energies = record.value("E"_L1).toArray();
    const QJsonArray intensities = record.value("I"_L1).toArray();
    RecordedPoints points;
    points.complete = energies.size() == intensities.size();
    if (!points.complete)
        return points;
    points.energies.reserve(energies.size());
    points.intensities.reserve(energies.size());
    for (qsizetype i = 0; i < energies.size(); ++i)
        take(points, energies.at(i), intensities.at(i));
    return points;
}

EntryFile read(const QString& path)
{
    QFile file(path);
    // Opening a pipe would wait for its other end, and a device may never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > mostBytes) {
        EntryFile unread;
        unread.path = path;
        return unread;
    }
    return fromBytes(path, file.readAll());
}

EntryFile fromBytes(const QString& path, const QByteArray& bytes)
{
    return parsed(path, bytes, [](qint64 place) { return place; });
}

EntryFile fromFrame(const QString& path, const DatabaseScan& scan)
{
    EntryFile frame =
        parsed(path, scan.frame, [&scan](qint64 place) { return scan.placeInText(place); });
    for (const DatabaseScan::Entry& entry : scan.entries)
        frame.separateEntries.insert(QString::fromLatin1(entry.key));
    frame.entries.removeIf([&frame](const PlacedEntry& entry) {
        return frame.separateEntries.contains(entry.place.mid(1)); // of the file itself: none
    });
    return frame;
}

EntryFile fromEntry(const QString& path, const QByteArray& key, const QByteArray& text,
                    qint64 placeInFile)
{
    // In brackets, so that it is parsed as deep as it stands.
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson('[' + text + ']', &error);
    if (error.error != QJsonParseError::NoError)
        return unparsed(path, error, placeInFile + error.offset - 1);
    EntryFile file;
    file.path = path;
    file.opened = true;
    file.isEntryAlone = true;
    file.kind = EntryFile::Kind::Database;
    file.object.insert(QString::fromLatin1(key), document.array().at(0));
    file.entries = entriesOfDatabase(file.object);
    file.oddities = JsonScan::odditiesOf(text);
    for (QString& place : file.oddities.repeatedMembers)
        place.prepend(JsonPointer::member({}, QString::fromLatin1(key)));
    return file;
}

} // namespace EntryFiles
