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
    static const QRegularExpression entryKey(u"^Entry[1-9][0-9]*$"_s);
    QStringList keys = object.keys();
    keys.removeIf([](const QString& key) { return !entryKey.match(key).hasMatch(); });
    std::stable_sort(keys.begin(), keys.end(), [](const QString& a, const QString& b) {
        return EntryFiles::numberOf(a) < EntryFiles::numberOf(b);
    });
    QList<PlacedEntry> entries;
    for (const QString& key : std::as_const(keys)) {
        if (object.value(key).isObject())
            entries.append(entryAt(JsonPointer::member({}, key), object.value(key).toObject()));
    }
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
    EntryFile file;
    file.path = path;
    file.opened = true;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        file.parseError = u"%1 (at byte %2)"_s.arg(error.errorString()).arg(error.offset);
        return file;
    }
    file.oddities = JsonScan::odditiesOf(bytes);
    file.object = document.object();
    file.kind = kindOf(file.object);
    file.entries = entriesOf(file.kind, file.object);
    return file;
}

} // namespace EntryFiles
