// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/examples/exampleentries.h"

#include "species/speciesfile.h"
#include "species/speciesmodel.h"
#include "species/structurepicture.h"
#include "spectrum/spectrummodel.h"
#include "tools/examples/franckcondon.h"
#include "tools/examples/structuredrawing.h"

#include <QJsonArray>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Spectroscopic constants: K. P. Huber and G. Herzberg, Constants of Diatomic Molecules (1979), as
// compiled in the NIST Chemistry WebBook. Ionisation energies and identifiers: NIST Chemistry
// WebBook.

constexpr double carbonMass = 12.0; // u
constexpr double nitrogenMass = 14.0030740;
constexpr double oxygenMass = 15.9949146;

/// meV
constexpr int fwhm = 20;
constexpr int gridStep = 2;
constexpr double evPerMev = 1e-3;

struct ElectronicState
{
    QString name; ///< HTML
    FranckCondon::Oscillator oscillator;
};

struct Ionisation
{
    ElectronicState neutral;
    ElectronicState cation;
    double mass;             ///< Reduced mass, u.
    QString adiabaticEnergy; ///< eV
};

struct SpeciesFacts
{
    QString name;
    QStringList aliases;
    double mass;     ///< amu
    QString formula; ///< HTML
    QString inchi;
    QString casNumber;
    QString pubChem;
    QString adiabaticEnergy; ///< eV
    QString uncertainty;     ///< eV
    QImage structure;
};

QJsonObject speciesRecord(const SpeciesFacts& facts)
{
    const QJsonObject record{
        {u"Name"_s, facts.name},
        {u"Aliases"_s, facts.aliases.join("<br>"_L1)},
        {u"Mass"_s, facts.mass},
        {u"Formula"_s, facts.formula},
        {u"InChI"_s, facts.inchi},
        {u"CAS"_s, facts.casNumber},
        {u"PubChem"_s, facts.pubChem},
        {u"AIE"_s, QString(facts.adiabaticEnergy + u" \u00b1 " + facts.uncertainty)},
        {u"AIE_Comment"_s, u"Evaluated value, NIST Chemistry WebBook"_s},
        {u"StructuralFormula"_s, StructurePicture::toBase64Png(facts.structure)},
    };
    // Through the model, so that the file is what the editor itself would save.
    SpeciesModel model;
    model.fromJson(record);
    return model.toJson();
}

QString constantsOf(const ElectronicState& state)
{
    constexpr int digits = 10;
    return state.name + u": \u03c9<sub>e</sub> = " +
           QString::number(state.oscillator.frequency, 'g', digits) +
           u" cm<sup>\u22121</sup>, \u03c9<sub>e</sub>x<sub>e</sub> = " +
           QString::number(state.oscillator.anharmonicity, 'g', digits) +
           u" cm<sup>\u22121</sup>, r<sub>e</sub> = " +
           QString::number(state.oscillator.bondLength, 'g', digits) + u" \u00c5";
}

QString comments(const Ionisation& ionisation, bool convolution)
{
    QStringList lines{
        u"Computed, not measured: Franck-Condon factors between the one-dimensional Morse "
        "oscillators of the two electronic states (own frequency, anharmonicity and bond "
        "length each), from v = 0 of the neutral (vibrational temperature 0 K)."_s,
        constantsOf(ionisation.neutral),
        constantsOf(ionisation.cation),
        u"Reduced mass of the main isotopes: %1 u."_s.arg(QString::number(ionisation.mass, 'f', 6)),
        u"Band positions: adiabatic ionisation energy %1 eV + G(v') \u2212 G(0) of "
        "the cation. Bands below 1/10000 of the strongest are left out."_s.arg(
            ionisation.adiabaticEnergy),
    };
    if (convolution) {
        lines.append(u"Convoluted with a Gaussian of %1 meV full width at half "
                     "maximum, on a grid of %2 meV; highest value scaled to 1000."_s.arg(fwhm)
                         .arg(gridStep));
    } else {
        lines.append(u"Strongest band scaled to 1000."_s);
    }
    lines.append(u"Rotation, spin-orbit splitting, autoionisation and the energy "
                 "dependence of the cross section are not included."_s);
    return lines.join("<br>"_L1);
}

QString references()
{
    return u"Spectroscopic constants: K. P. Huber and G. Herzberg, Constants of Diatomic Molecules "
           "(1979), as compiled in the NIST Chemistry WebBook<br>"
           "Ionisation energy: evaluated value, NIST Chemistry WebBook"_s;
}

double rounded(double value, double perUnit)
{
    return std::round(value * perUnit) / perUnit;
}

QJsonObject datasetRecord(const Ionisation& ionisation, const QList<QPointF>& points,
                          bool convolution)
{
    QJsonArray energies;
    QJsonArray intensities;
    for (const QPointF& point : points) {
        energies.append(point.x());
        intensities.append(point.y());
    }
    const QString kind = convolution ? u"computed Franck-Condon spectrum"_s
                                     : u"computed Franck-Condon line spectrum"_s;
    const QJsonObject record{
        {u"Title"_s, QString(ionisation.cation.name + u", " + kind)},
        {u"Uploader"_s, u"KORVELA examples"_s},
        {u"SpectType"_s, SpectrumModel::FcSimulation},
        {u"FurtherRefs"_s, references()},
        {u"T"_s, u"0"_s},
        {u"FurtherComments"_s, comments(ionisation, convolution)},
        {u"CreatedDate"_s, u"2026-11-21"_s},
        {u"FacilityDate"_s, u"computed, no facility"_s},
        {u"LineSpectrum"_s, !convolution},
        {u"LevelOfTheory"_s,
         u"Franck-Condon factors of Morse oscillators from published spectroscopic "
         "constants"_s},
        {u"ConvolutionFWHM"_s, convolution ? QString::number(fwhm) : QString()},
        {u"AIE"_s, ionisation.adiabaticEnergy},
        {u"E"_s, energies},
        {u"I"_s, intensities},
    };
    SpectrumModel model;
    model.fromJson(record);
    return model.toJson();
}

QList<QJsonObject> datasets(const Ionisation& ionisation)
{
    const QList<QPointF> lines =
        FranckCondon::lineSpectrum(ionisation.neutral.oscillator, ionisation.cation.oscillator,
                                   ionisation.mass, ionisation.adiabaticEnergy.toDouble());
    QList<QPointF> curve = FranckCondon::convoluted(lines, fwhm * evPerMev, gridStep * evPerMev);
    // More digits in the wings would be rounding noise.
    for (QPointF& point : curve)
        point = QPointF(rounded(point.x(), 1000.0), rounded(point.y(), 100.0));
    return {datasetRecord(ionisation, lines, false), datasetRecord(ionisation, curve, true)};
}

QJsonObject file(const SpeciesFacts& facts)
{
    return SpeciesFile::assemble(speciesRecord(facts), {});
}

QJsonObject file(const SpeciesFacts& facts, double mass1, double mass2,
                 const ElectronicState& neutral, const ElectronicState& cation)
{
    const Ionisation ionisation{neutral, cation, FranckCondon::reducedMass(mass1, mass2),
                                facts.adiabaticEnergy};
    return SpeciesFile::assemble(speciesRecord(facts), datasets(ionisation));
}

ExampleEntry nitricOxide()
{
    const SpeciesFacts facts{
        .name = u"nitric oxide"_s,
        .aliases = {u"nitrogen monoxide"_s, u"nitrogen(II) oxide"_s},
        .mass = 30.0061,
        .formula = u"NO"_s,
        .inchi = u"InChI=1S/NO/c1-2"_s,
        .casNumber = u"10102-43-9"_s,
        .pubChem = u"145068"_s,
        .adiabaticEnergy = u"9.2642"_s,
        .uncertainty = u"0.00002"_s,
        .structure = StructureDrawing::nitricOxide(),
    };
    const ElectronicState neutral{u"X <sup>2</sup>\u03a0 of NO"_s, {1904.20, 14.075, 1.15077}};
    const ElectronicState cation{u"X <sup>1</sup>\u03a3<sup>+</sup> of NO<sup>+</sup>"_s,
                                 {2376.42, 16.262, 1.06322}};
    return {u"entry1-nitric-oxide.json"_s, facts.casNumber,
            file(facts, nitrogenMass, oxygenMass, neutral, cation)};
}

ExampleEntry nitrogen()
{
    const SpeciesFacts facts{
        .name = u"nitrogen"_s,
        .aliases = {u"dinitrogen"_s, u"molecular nitrogen"_s},
        .mass = 28.0134,
        .formula = u"N<sub>2</sub>"_s,
        .inchi = u"InChI=1S/N2/c1-2"_s,
        .casNumber = u"7727-37-9"_s,
        .pubChem = u"947"_s,
        .adiabaticEnergy = u"15.581"_s,
        .uncertainty = u"0.008"_s,
        .structure = StructureDrawing::nitrogen(),
    };
    const ElectronicState neutral{
        u"X <sup>1</sup>\u03a3<sub>g</sub><sup>+</sup> of N<sub>2</sub>"_s,
        {2358.57, 14.324, 1.09768}};
    const ElectronicState cation{
        u"X <sup>2</sup>\u03a3<sub>g</sub><sup>+</sup> of N<sub>2</sub><sup>+</sup>"_s,
        {2207.00, 16.10, 1.11642}};
    return {u"entry2-nitrogen.json"_s, facts.casNumber,
            file(facts, nitrogenMass, nitrogenMass, neutral, cation)};
}

ExampleEntry oxygen()
{
    const SpeciesFacts facts{
        .name = u"oxygen"_s,
        .aliases = {u"dioxygen"_s, u"molecular oxygen"_s},
        .mass = 31.9988,
        .formula = u"O<sub>2</sub>"_s,
        .inchi = u"InChI=1S/O2/c1-2"_s,
        .casNumber = u"7782-44-7"_s,
        .pubChem = u"977"_s,
        .adiabaticEnergy = u"12.0697"_s,
        .uncertainty = u"0.0002"_s,
        .structure = StructureDrawing::oxygen(),
    };
    const ElectronicState neutral{
        u"X <sup>3</sup>\u03a3<sub>g</sub><sup>\u2212</sup> of O<sub>2</sub>"_s,
        {1580.19, 11.98, 1.20752}};
    const ElectronicState cation{u"X <sup>2</sup>\u03a0<sub>g</sub> of O<sub>2</sub><sup>+</sup>"_s,
                                 {1904.77, 16.259, 1.1164}};
    return {u"entry3-oxygen.json"_s, facts.casNumber,
            file(facts, oxygenMass, oxygenMass, neutral, cation)};
}

ExampleEntry carbonMonoxide()
{
    const SpeciesFacts facts{
        .name = u"carbon monoxide"_s,
        .aliases = {u"carbon(II) oxide"_s, u"carbonic oxide"_s},
        .mass = 28.0101,
        .formula = u"CO"_s,
        .inchi = u"InChI=1S/CO/c1-2"_s,
        .casNumber = u"630-08-0"_s,
        .pubChem = u"281"_s,
        .adiabaticEnergy = u"14.014"_s,
        .uncertainty = u"0.0003"_s,
        .structure = StructureDrawing::carbonMonoxide(),
    };
    const ElectronicState neutral{u"X <sup>1</sup>\u03a3<sup>+</sup> of CO"_s,
                                  {2169.81, 13.288, 1.12832}};
    const ElectronicState cation{u"X <sup>2</sup>\u03a3<sup>+</sup> of CO<sup>+</sup>"_s,
                                 {2214.24, 15.164, 1.11514}};
    return {u"entry4-carbon-monoxide.json"_s, facts.casNumber,
            file(facts, carbonMass, oxygenMass, neutral, cation)};
}

ExampleEntry water()
{
    const SpeciesFacts facts{
        .name = u"water"_s,
        .aliases = {u"oxidane"_s, u"dihydrogen oxide"_s},
        .mass = 18.0153,
        .formula = u"H<sub>2</sub>O"_s,
        .inchi = u"InChI=1S/H2O/h1H2"_s,
        .casNumber = u"7732-18-5"_s,
        .pubChem = u"962"_s,
        .adiabaticEnergy = u"12.621"_s,
        .uncertainty = u"0.002"_s,
        .structure = StructureDrawing::water(),
    };
    return {u"entry10-water.json"_s, facts.casNumber, file(facts)};
}

ExampleEntry benzene()
{
    const SpeciesFacts facts{
        .name = u"benzene"_s,
        .aliases = {u"benzol"_s, u"[6]annulene"_s},
        .mass = 78.1118,
        .formula = u"C<sub>6</sub>H<sub>6</sub>"_s,
        .inchi = u"InChI=1S/C6H6/c1-2-4-6-5-3-1/h1-6H"_s,
        .casNumber = u"71-43-2"_s,
        .pubChem = u"241"_s,
        .adiabaticEnergy = u"9.24378"_s,
        .uncertainty = u"0.00007"_s,
        .structure = StructureDrawing::benzene(),
    };
    return {u"entry11-benzene.json"_s, facts.casNumber, file(facts)};
}

} // namespace

QList<ExampleEntry> exampleEntries()
{
    return {nitricOxide(), nitrogen(), oxygen(), carbonMonoxide(), water(), benzene()};
}
