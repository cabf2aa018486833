// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/exporteddataset.h"

#include "entries/plaintext.h"

#include <QFileInfo>

#include <array>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

/// A member of a record, and what it is called elsewhere, with its unit.
struct Translation
{
    QLatin1StringView key;
    const char* name = nullptr;
};

constexpr std::array speciesFields{
    Translation{"Name"_L1, "name"},       Translation{"Aliases"_L1, "aliases"},
    Translation{"Formula"_L1, "formula"}, Translation{"InChI"_L1, "inchi"},
    Translation{"CAS"_L1, "cas"},         Translation{"PubChem"_L1, "pubchem"},
    Translation{"AIE"_L1, "aie"},         Translation{"AIE_Comment"_L1, "aie_comment"},
    Translation{"VIE"_L1, "vie"},         Translation{"VIE_Comment"_L1, "vie_comment"},
};

constexpr std::array recordFields{
    Translation{"Title"_L1, "title"},
    Translation{"Uploader"_L1, "uploader"},
    Translation{"DOI"_L1, "doi"},
    Translation{"FurtherRefs"_L1, "references"},
    Translation{"CreatedDate"_L1, "created"},
    Translation{"FacilityDate"_L1, "facility"},
    Translation{"T"_L1, "temperature_k"},
    Translation{"Source"_L1, "source"},
    Translation{"Resolution"_L1, "resolution_mev"},
    Translation{"Normalization"_L1, "normalization"},
    Translation{"LevelOfTheory"_L1, "level_of_theory"},
    Translation{"ConvolutionFWHM"_L1, "convolution_fwhm_mev"},
    Translation{"AIE"_L1, "transition_ev"},
    Translation{"FurtherComments"_L1, "comments"},
};

template <std::size_t size>
void append(QList<ExportedDataset::Field>& fields, const QJsonObject& record,
            const std::array<Translation, size>& translations)
{
    for (const Translation& translation : translations) {
        const QString text = record.value(translation.key).toString();
        fields.append({translation.name, PlainText::fromMarkedUp(text)});
    }
}

QString typeName(const QJsonValue& type)
{
    static const QStringList names{u"ms-TPES"_s, u"ms-SPES"_s,       u"TPES"_s,
                                   u"PES"_s,     u"FC simulation"_s, u"PIS"_s};
    return names.value(type.toInt(-1));
}

} // namespace

QString ExportedDataset::text(const char* name) const
{
    for (const Field& field : fields) {
        if (std::strcmp(field.name, name) == 0)
            return field.text;
    }
    return {};
}

QList<ExportedDataset> ExportedDataset::of(const EntryFile& file)
{
    QList<ExportedDataset> datasets;
    for (qsizetype i = 0; i < file.entries.size(); ++i) {
        const PlacedEntry& entry = file.entries.at(i);
        for (const PlacedSpectrum& spectrum : entry.spectra) {
            ExportedDataset dataset;
            dataset.file = QFileInfo(file.path).fileName();
            dataset.entry = int(file.firstEntry + i) + 1;
            dataset.number = spectrum.number;
            dataset.spectrumType = typeName(spectrum.record.value("SpectType"_L1));
            dataset.isLineSpectrum = spectrum.record.value("LineSpectrum"_L1).toBool();
            dataset.mass = entry.species.value("Mass"_L1).toDouble();
            dataset.formula = entry.species.value("Formula"_L1).toString();
            append(dataset.fields, entry.species, speciesFields);
            append(dataset.fields, spectrum.record, recordFields);
            dataset.speciesName = PlainText::inOneLine(dataset.text("name"));
            dataset.title = PlainText::inOneLine(dataset.text("title"));
            dataset.points = spectrum.points;
            datasets.append(dataset);
        }
    }
    return datasets;
}
