// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/energytext.h"
#include "entries/exportformats.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

QJsonArray numbers(const QList<double>& values)
{
    QJsonArray array;
    for (const double value : values)
        array.append(value);
    return array;
}

QJsonArray lines(const QString& text)
{
    return QJsonArray::fromStringList(text.split(u'\n', Qt::SkipEmptyParts));
}

/// The energy alone, for those who compute with it.
QJsonValue energy(const QString& text)
{
    const auto parsed = EnergyText::parse(text);
    return parsed ? QJsonValue(parsed->value) : QJsonValue();
}

/// Engines take a column for days only when every line has a day or nothing.
QJsonValue day(const QString& text)
{
    return QDate::fromString(text, u"yyyy-MM-dd"_s).isValid() ? QJsonValue(text) : QJsonValue();
}

QJsonValue valueOf(const ExportedDataset::Field& field)
{
    if (std::strcmp(field.name, "aliases") == 0)
        return lines(field.text);
    if (std::strcmp(field.name, "created") == 0)
        return day(field.text);
    return field.text;
}

} // namespace

QByteArray ExportFormats::jsonLine(const ExportedDataset& dataset)
{
    QJsonObject line{
        {u"file"_s, dataset.file},
        {u"entry"_s, dataset.entry},
        {u"dataset"_s, dataset.number},
        {u"mass_amu"_s, dataset.mass == 0 ? QJsonValue() : QJsonValue(dataset.mass)},
        {u"spectrum_type"_s, dataset.spectrumType},
        {u"line_spectrum"_s, dataset.isLineSpectrum},
        {u"aie_ev"_s, energy(dataset.text("aie"))},
        {u"vie_ev"_s, energy(dataset.text("vie"))},
        {u"photon_energy_ev"_s, numbers(dataset.points.energies)},
        {u"intensity"_s, numbers(dataset.points.intensities)},
    };
    for (const ExportedDataset::Field& field : dataset.fields)
        line.insert(QString::fromLatin1(field.name), valueOf(field));
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}
