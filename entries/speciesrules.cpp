// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/speciesrules.h"

#include "entries/composition.h"
#include "entries/energytext.h"
#include "entries/jsonpointer.h"
#include "entries/plaintext.h"
#include "species/casnumber.h"
#include "species/structurepicture.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array energyKeys{"AIE"_L1, "VIE"_L1};

QString placeOf(const PlacedEntry& entry, QLatin1StringView key)
{
    return JsonPointer::member(JsonPointer::member(entry.place, u"Species"_s), key);
}

QString textOf(const PlacedEntry& entry, QLatin1StringView key)
{
    return entry.species.value(key).toString().trimmed();
}

/// The characters alone: identifiers are checked without their markup, as the editor does.
QString plainTextOf(const PlacedEntry& entry, QLatin1StringView key)
{
    QString text = textOf(entry, key);
    for (const auto tag : {"<sub>"_L1, "</sub>"_L1, "<sup>"_L1, "</sup>"_L1, "<br>"_L1})
        text.remove(tag);
    return text.trimmed();
}

using Look = std::function<void(const PlacedEntry&)>;

void forEachSpecies(const EntryFile& file, const Look& look)
{
    for (const PlacedEntry& entry : file.entries) {
        if (entry.hasSpecies)
            look(entry);
    }
}

void complainOfMissing(const EntryFile& file, QLatin1StringView key, const QString& sentence,
                       const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        if (entry.species.value(key).isString() && textOf(entry, key).isEmpty())
            complain(placeOf(entry, key), sentence);
    });
}

QString inElectronVolts(double energy)
{
    return QString::number(energy, 'g', 9) + u" eV"_s;
}

/// Half of the last digit that is written.
double roundingOf(double number)
{
    const QString text = QString::number(number, 'f', QLocale::FloatingPointShortest);
    const qsizetype point = text.indexOf(u'.');
    const auto decimals = point < 0 ? 0 : int(text.size() - point - 1);
    return 0.5 * std::pow(10.0, -decimals);
}

QString described(const Composition& composition)
{
    QString text = composition.atoms.isEmpty() ? u"nothing"_s : composition.hillFormula();
    if (composition.charge != 0)
        text += u", charge %1"_s.arg(composition.charge);
    return text;
}

/// The 0-0 transition of the entry's simulations that is nearest to an energy.
std::optional<EnergyText> nearestTransition(const PlacedEntry& entry, double energy)
{
    std::optional<EnergyText> nearest;
    for (const PlacedSpectrum& spectrum : entry.spectra) {
        constexpr int simulation = 4;
        if (spectrum.record.value("SpectType"_L1).toInt(-1) != simulation)
            continue;
        const auto transition = EnergyText::parse(spectrum.record.value("AIE"_L1).toString());
        if (transition &&
            (!nearest || std::abs(transition->value - energy) < std::abs(nearest->value - energy)))
            nearest = transition;
    }
    return nearest;
}

} // namespace

namespace SpeciesRules {

void casNumber(const EntryFile& file, const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        const QString number = plainTextOf(entry, "CAS"_L1);
        if (!number.isEmpty() && !isValidCasNumber(number)) {
            complain(placeOf(entry, "CAS"_L1),
                     u"\"%1\" is no CAS number: expected are digits, two digits and the right "
                     "check digit, as in 58-08-2."_s.arg(number));
        }
    });
}

void pictureUnreadable(const EntryFile& file, const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        const QString picture = entry.species.value("StructuralFormula"_L1).toString();
        if (!picture.isEmpty() && StructurePicture::fromBase64(picture).isNull()) {
            complain(
                placeOf(entry, "StructuralFormula"_L1),
                u"The structure picture cannot be decoded; expected is a picture in base64."_s);
        }
    });
}

void nameMissing(const EntryFile& file, const Complain& complain)
{
    complainOfMissing(file, "Name"_L1, u"The species has no name."_s, complain);
}

void formulaMissing(const EntryFile& file, const Complain& complain)
{
    complainOfMissing(file, "Formula"_L1, u"The species has no sum formula."_s, complain);
}

void inchiMissing(const EntryFile& file, const Complain& complain)
{
    complainOfMissing(file, "InChI"_L1, u"The species has no InChI."_s, complain);
}

void inchiForm(const EntryFile& file, const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        const QString inchi = plainTextOf(entry, "InChI"_L1);
        if (!inchi.isEmpty() && !inchi.startsWith("InChI=1S/"_L1)) {
            complain(placeOf(entry, "InChI"_L1),
                     u"The InChI does not begin with \"InChI=1S/\", as a standard InChI does."_s);
        }
    });
}

void inchiFormula(const EntryFile& file, const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        const auto inchi = Compositions::fromInChI(plainTextOf(entry, "InChI"_L1));
        const auto formula = Compositions::fromSumFormula(textOf(entry, "Formula"_L1));
        if (!inchi || !formula)
            return;
        const Composition plain = formula->withoutIsotopes();
        if (inchi->withoutIsotopes().atoms != plain.atoms || inchi->charge != plain.charge) {
            complain(placeOf(entry, "InChI"_L1),
                     u"The InChI says %1, the sum formula %2; both should say the same."_s.arg(
                         described(inchi->withoutIsotopes()), described(plain)));
        }
    });
}

void massFormula(const EntryFile& file, const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        const double mass = entry.species.value("Mass"_L1).toDouble();
        const auto formula = Compositions::fromSumFormula(textOf(entry, "Formula"_L1));
        const auto inchi = Compositions::fromInChI(plainTextOf(entry, "InChI"_L1));
        const auto masses = formula ? Compositions::massesOf(*formula) : std::nullopt;
        if (!masses || (inchi && inchi->labelled) || mass == 0)
            return;
        const double rounding = roundingOf(mass);
        const auto isNear = [&](double expected, double uncertainty) {
            return std::abs(mass - expected) <= rounding + uncertainty;
        };
        if (isNear(masses->average, masses->averageUncertainty) ||
            isNear(masses->mainIsotopes, masses->mainIsotopesUncertainty))
            return;
        complain(
            placeOf(entry, "Mass"_L1),
            u"The mass is %1; that of %2 is %3 on average and %4 with the main isotopes."_s.arg(
                QString::number(mass, 'g', QLocale::FloatingPointShortest), formula->hillFormula(),
                QString::number(masses->average, 'f', 3),
                QString::number(masses->mainIsotopes, 'f', 4)));
    });
}

void energyForm(const EntryFile& file, const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        for (const auto key : energyKeys) {
            const QString text = textOf(entry, key);
            if (!text.isEmpty() && !EnergyText::parse(text)) {
                complain(placeOf(entry, key),
                         u"\"%1\" is not \"number\" or \"number ± number\"."_s.arg(
                             PlainText::inOneLine(text)));
            }
        }
    });
}

void energyRange(const EntryFile& file, const Complain& complain)
{
    constexpr double lowest = 3;
    constexpr double highest = 30;
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        for (const auto key : energyKeys) {
            const auto energy = EnergyText::parse(textOf(entry, key));
            if (energy && (energy->value < lowest || energy->value > highest)) {
                complain(placeOf(entry, key),
                         u"The ionisation energy is %1; expected are 3 to 30 eV."_s.arg(
                             inElectronVolts(energy->value)));
            }
        }
    });
}

void energyOrder(const EntryFile& file, const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        const auto adiabatic = EnergyText::parse(textOf(entry, "AIE"_L1));
        const auto vertical = EnergyText::parse(textOf(entry, "VIE"_L1));
        if (!adiabatic || !vertical)
            return;
        const double tolerance = adiabatic->uncertainty + vertical->uncertainty;
        if (adiabatic->value > vertical->value + tolerance) {
            complain(placeOf(entry, "AIE"_L1),
                     u"The adiabatic ionisation energy, %1, lies above the vertical one, %2."_s.arg(
                         inElectronVolts(adiabatic->value), inElectronVolts(vertical->value)));
        }
    });
}

void energyTransition(const EntryFile& file, const Complain& complain)
{
    // Simulations are shifted to fit, but not by more than they are off; those of excited states
    // of the ion begin elsewhere, so one that fits is enough.
    constexpr double near = 0.1;
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        const auto energy = EnergyText::parse(textOf(entry, "AIE"_L1));
        const auto transition = energy ? nearestTransition(entry, energy->value) : std::nullopt;
        if (!transition)
            return;
        const double tolerance = near + energy->uncertainty + transition->uncertainty;
        if (std::abs(energy->value - transition->value) > tolerance) {
            complain(placeOf(entry, "AIE"_L1),
                     u"The adiabatic ionisation energy is %1, but the nearest 0-0 transition of a "
                     "simulation %2; expected is a difference of at most 0.1 eV."_s.arg(
                         inElectronVolts(energy->value), inElectronVolts(transition->value)));
        }
    });
}

void commentDoi(const EntryFile& file, const Complain& complain)
{
    forEachSpecies(file, [&](const PlacedEntry& entry) {
        for (const auto key : {"AIE_Comment"_L1, "VIE_Comment"_L1}) {
            const QString comment = textOf(entry, key);
            if (Doi::isMeantToBe(comment) && !Doi::isDoi(comment.section(u' ', 0, 0)) &&
                !Doi::isDoi(comment)) {
                complain(placeOf(entry, key),
                         u"\"%1\" is no DOI; expected is the form 10.1234/abc."_s.arg(comment));
            }
        }
    });
}

} // namespace SpeciesRules
