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
        {QStringLiteral("Name"), facts.name},
        {QStringLiteral("Aliases"), facts.aliases.join(QLatin1String("<br>"))},
        {QStringLiteral("Mass"), facts.mass},
        {QStringLiteral("Formula"), facts.formula},
        {QStringLiteral("InChI"), facts.inchi},
        {QStringLiteral("CAS"), facts.casNumber},
        {QStringLiteral("PubChem"), facts.pubChem},
        {QStringLiteral("AIE"), QString(facts.adiabaticEnergy + u" \u00b1 " + facts.uncertainty)},
        {QStringLiteral("AIE_Comment"), QStringLiteral("Evaluated value, NIST Chemistry WebBook")},
        {QStringLiteral("StructuralFormula"), StructurePicture::toBase64Png(facts.structure)},
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
        QStringLiteral(
            "Computed, not measured: Franck-Condon factors between the one-dimensional Morse "
            "oscillators of the two electronic states (own frequency, anharmonicity and bond "
            "length each), from v = 0 of the neutral (vibrational temperature 0 K)."),
        constantsOf(ionisation.neutral),
        constantsOf(ionisation.cation),
        QStringLiteral("Reduced mass of the main isotopes: %1 u.")
            .arg(QString::number(ionisation.mass, 'f', 6)),
        QStringLiteral("Band positions: adiabatic ionisation energy %1 eV + G(v') \u2212 G(0) of "
                       "the cation. Bands below 1/10000 of the strongest are left out.")
            .arg(ionisation.adiabaticEnergy),
    };
    if (convolution) {
        lines.append(QStringLiteral("Convoluted with a Gaussian of %1 meV full width at half "
                                    "maximum, on a grid of %2 meV; highest value scaled to 1000.")
                         .arg(fwhm)
                         .arg(gridStep));
    } else {
        lines.append(QStringLiteral("Strongest band scaled to 1000."));
    }
    lines.append(QStringLiteral("Rotation, spin-orbit splitting, autoionisation and the energy "
                                "dependence of the cross section are not included."));
    return lines.join(QLatin1String("<br>"));
}

QString references()
{
    return QStringLiteral(
        "Spectroscopic constants: K. P. Huber and G. Herzberg, Constants of Diatomic Molecules "
        "(1979), as compiled in the NIST Chemistry WebBook<br>"
        "Ionisation energy: evaluated value, NIST Chemistry WebBook");
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
    const QString kind = convolution ? QStringLiteral("computed Franck-Condon spectrum")
                                     : QStringLiteral("computed Franck-Condon line spectrum");
    const QJsonObject record{
        {QStringLiteral("Title"), QString(ionisation.cation.name + u", " + kind)},
        {QStringLiteral("Uploader"), QStringLiteral("KORVELA examples")},
        {QStringLiteral("SpectType"), SpectrumModel::FcSimulation},
        {QStringLiteral("FurtherRefs"), references()},
        {QStringLiteral("T"), QStringLiteral("0")},
        {QStringLiteral("FurtherComments"), comments(ionisation, convolution)},
        {QStringLiteral("CreatedDate"), QStringLiteral("2026-11-21")},
        {QStringLiteral("FacilityDate"), QStringLiteral("computed, no facility")},
        {QStringLiteral("LineSpectrum"), !convolution},
        {QStringLiteral("LevelOfTheory"),
         QStringLiteral("Franck-Condon factors of Morse oscillators from published spectroscopic "
                        "constants")},
        {QStringLiteral("ConvolutionFWHM"), convolution ? QString::number(fwhm) : QString()},
        {QStringLiteral("AIE"), ionisation.adiabaticEnergy},
        {QStringLiteral("E"), energies},
        {QStringLiteral("I"), intensities},
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
        .name = QStringLiteral("nitric oxide"),
        .aliases = {QStringLiteral("nitrogen monoxide"), QStringLiteral("nitrogen(II) oxide")},
        .mass = 30.0061,
        .formula = QStringLiteral("NO"),
        .inchi = QStringLiteral("InChI=1S/NO/c1-2"),
        .casNumber = QStringLiteral("10102-43-9"),
        .pubChem = QStringLiteral("145068"),
        .adiabaticEnergy = QStringLiteral("9.2642"),
        .uncertainty = QStringLiteral("0.00002"),
        .structure = StructureDrawing::nitricOxide(),
    };
    const ElectronicState neutral{QStringLiteral("X <sup>2</sup>\u03a0 of NO"),
                                  {1904.20, 14.075, 1.15077}};
    const ElectronicState cation{
        QStringLiteral("X <sup>1</sup>\u03a3<sup>+</sup> of NO<sup>+</sup>"),
        {2376.42, 16.262, 1.06322}};
    return {QStringLiteral("entry1-nitric-oxide.json"), facts.casNumber,
            file(facts, nitrogenMass, oxygenMass, neutral, cation)};
}

ExampleEntry nitrogen()
{
    const SpeciesFacts facts{
        .name = QStringLiteral("nitrogen"),
        .aliases = {QStringLiteral("dinitrogen"), QStringLiteral("molecular nitrogen")},
        .mass = 28.0134,
        .formula = QStringLiteral("N<sub>2</sub>"),
        .inchi = QStringLiteral("InChI=1S/N2/c1-2"),
        .casNumber = QStringLiteral("7727-37-9"),
        .pubChem = QStringLiteral("947"),
        .adiabaticEnergy = QStringLiteral("15.581"),
        .uncertainty = QStringLiteral("0.008"),
        .structure = StructureDrawing::nitrogen(),
    };
    const ElectronicState neutral{
        QStringLiteral("X <sup>1</sup>\u03a3<sub>g</sub><sup>+</sup> of N<sub>2</sub>"),
        {2358.57, 14.324, 1.09768}};
    const ElectronicState cation{
        QStringLiteral("X <sup>2</sup>\u03a3<sub>g</sub><sup>+</sup> of N<sub>2</sub><sup>+</sup>"),
        {2207.00, 16.10, 1.11642}};
    return {QStringLiteral("entry2-nitrogen.json"), facts.casNumber,
            file(facts, nitrogenMass, nitrogenMass, neutral, cation)};
}

ExampleEntry oxygen()
{
    const SpeciesFacts facts{
        .name = QStringLiteral("oxygen"),
        .aliases = {QStringLiteral("dioxygen"), QStringLiteral("molecular oxygen")},
        .mass = 31.9988,
        .formula = QStringLiteral("O<sub>2</sub>"),
        .inchi = QStringLiteral("InChI=1S/O2/c1-2"),
        .casNumber = QStringLiteral("7782-44-7"),
        .pubChem = QStringLiteral("977"),
        .adiabaticEnergy = QStringLiteral("12.0697"),
        .uncertainty = QStringLiteral("0.0002"),
        .structure = StructureDrawing::oxygen(),
    };
    const ElectronicState neutral{
        QStringLiteral("X <sup>3</sup>\u03a3<sub>g</sub><sup>\u2212</sup> of O<sub>2</sub>"),
        {1580.19, 11.98, 1.20752}};
    const ElectronicState cation{
        QStringLiteral("X <sup>2</sup>\u03a0<sub>g</sub> of O<sub>2</sub><sup>+</sup>"),
        {1904.77, 16.259, 1.1164}};
    return {QStringLiteral("entry3-oxygen.json"), facts.casNumber,
            file(facts, oxygenMass, oxygenMass, neutral, cation)};
}

ExampleEntry carbonMonoxide()
{
    const SpeciesFacts facts{
        .name = QStringLiteral("carbon monoxide"),
        .aliases = {QStringLiteral("carbon(II) oxide"), QStringLiteral("carbonic oxide")},
        .mass = 28.0101,
        .formula = QStringLiteral("CO"),
        .inchi = QStringLiteral("InChI=1S/CO/c1-2"),
        .casNumber = QStringLiteral("630-08-0"),
        .pubChem = QStringLiteral("281"),
        .adiabaticEnergy = QStringLiteral("14.014"),
        .uncertainty = QStringLiteral("0.0003"),
        .structure = StructureDrawing::carbonMonoxide(),
    };
    const ElectronicState neutral{QStringLiteral("X <sup>1</sup>\u03a3<sup>+</sup> of CO"),
                                  {2169.81, 13.288, 1.12832}};
    const ElectronicState cation{
        QStringLiteral("X <sup>2</sup>\u03a3<sup>+</sup> of CO<sup>+</sup>"),
        {2214.24, 15.164, 1.11514}};
    return {QStringLiteral("entry4-carbon-monoxide.json"), facts.casNumber,
            file(facts, carbonMass, oxygenMass, neutral, cation)};
}

ExampleEntry water()
{
    const SpeciesFacts facts{
        .name = QStringLiteral("water"),
        .aliases = {QStringLiteral("oxidane"), QStringLiteral("dihydrogen oxide")},
        .mass = 18.0153,
        .formula = QStringLiteral("H<sub>2</sub>O"),
        .inchi = QStringLiteral("InChI=1S/H2O/h1H2"),
        .casNumber = QStringLiteral("7732-18-5"),
        .pubChem = QStringLiteral("962"),
        .adiabaticEnergy = QStringLiteral("12.621"),
        .uncertainty = QStringLiteral("0.002"),
        .structure = StructureDrawing::water(),
    };
    return {QStringLiteral("entry10-water.json"), facts.casNumber, file(facts)};
}

ExampleEntry benzene()
{
    const SpeciesFacts facts{
        .name = QStringLiteral("benzene"),
        .aliases = {QStringLiteral("benzol"), QStringLiteral("[6]annulene")},
        .mass = 78.1118,
        .formula = QStringLiteral("C<sub>6</sub>H<sub>6</sub>"),
        .inchi = QStringLiteral("InChI=1S/C6H6/c1-2-4-6-5-3-1/h1-6H"),
        .casNumber = QStringLiteral("71-43-2"),
        .pubChem = QStringLiteral("241"),
        .adiabaticEnergy = QStringLiteral("9.24378"),
        .uncertainty = QStringLiteral("0.00007"),
        .structure = StructureDrawing::benzene(),
    };
    return {QStringLiteral("entry11-benzene.json"), facts.casNumber, file(facts)};
}

} // namespace

QList<ExampleEntry> exampleEntries()
{
    return {nitricOxide(), nitrogen(), oxygen(), carbonMonoxide(), water(), benzene()};
}
