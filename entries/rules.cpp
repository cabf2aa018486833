// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/rules.h"

#include "entries/speciesrules.h"
#include "entries/spectrumrules.h"
#include "entries/structurerules.h"
#include "entries/textrules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Rules {

namespace {

/// A file that is wrong all over need not be told so in every place.
constexpr qsizetype mostOfOneRule = 100;

constexpr bool inSchemas = true;
constexpr bool notInSchemas = false;

using Check = void (*)(const EntryFile&, const Complain&);
using Compare = void (*)(const QList<FileSummary>&, const ComplainOfFile&);

constexpr Rule error(const char* name, bool schemas, Check check, const char* reason)
{
    return {name, Severity::Error, schemas, reason, check, nullptr};
}

constexpr Rule warning(const char* name, Check check, const char* reason)
{
    return {name, Severity::Warning, notInSchemas, reason, check, nullptr};
}

constexpr Rule across(const char* name, Compare compare, const char* reason)
{
    return {name, Severity::Warning, notInSchemas, reason, nullptr, compare};
}

QList<Rule> structureRules()
{
    using namespace StructureRules;
    return {
        error("unreadable", inSchemas, unreadable,
              "What cannot be read cannot be judged; the exit code is 2 then."),
        error("not-json", inSchemas, notJson, "The editor and all other readers refuse the file."),
        error("byte-order-mark", inSchemas, byteOrderMark,
              "JSON is UTF-8 without one; some readers refuse the file."),
        error("unknown-type", inSchemas, unknownType,
              "The editor refuses a file that does not say what it is."),
        error("missing-member", inSchemas, missingMember,
              "The editor reads \"\", 0 or false; others may refuse the file."),
        error("unknown-member", inSchemas, unknownMember,
              "The editor does not read it, and it is gone after the next save."),
        error("repeated-member", notInSchemas, repeatedMember,
              "Most readers keep the last and lose the others without a word."),
        error("repeated-dataset", notInSchemas, repeatedDataset,
              "One of the two is lost, or both get other numbers at the next save."),
        error("wrong-kind", inSchemas, wrongKind,
              "The editor reads a value of another kind as \"\", 0 or false."),
        error("spectrum-type", inSchemas, spectrumType,
              "The type decides what the fields of a spectrum mean; there are the types 0 to 5."),
        error("foreign-tags", inSchemas, foreignTags,
              "Only <sub>, <sup> and <br> mean something; saving removes all others."),
        error("database-date", inSchemas, databaseDate,
              "Databases are told apart by their day, yyyy-MM-dd."),
        error("picture-form", inSchemas, pictureForm,
              "Pictures are PNG files in base64, which every reader understands."),
    };
}

QList<Rule> speciesRules()
{
    using namespace SpeciesRules;
    return {
        error("picture-unreadable", notInSchemas, pictureUnreadable,
              "The editor shows no picture then, and loses it at the next save."),
        error("cas-number", notInSchemas, casNumber,
              "The check digit finds wrong digits; a wrong number names another substance."),
        warning("name-missing", nameMissing, "People look for names."),
        warning("formula-missing", formulaMissing, "People look for sum formulas."),
        warning("inchi-missing", inchiMissing,
                "The InChI says for certain which substance is meant."),
        warning("inchi-form", inchiForm, "Only standard InChIs, \"InChI=1S/\", can be compared."),
        warning("inchi-formula", inchiFormula,
                "One of the two names another substance when they disagree."),
        warning("mass-formula", massFormula,
                "The mass should be that of the formula: average or of the main isotopes."),
        warning("energy-form", energyForm,
                "\"number\" or \"number ± number\" can be read by programs."),
        warning("energy-range", energyRange,
                "No first ionisation energy lies outside 3 to 30 eV; the unit may be another one."),
        warning("energy-order", energyOrder,
                "The adiabatic ionisation energy is the lowest there is."),
        warning("energy-transition", energyTransition,
                "A simulation's 0-0 transition is the adiabatic ionisation energy, within 0.1 eV."),
        warning("comment-doi", commentDoi, "A DOI that cannot be resolved cites nothing."),
    };
}

QList<Rule> spectrumRules()
{
    using namespace SpectrumRules;
    return {
        error("points-length", notInSchemas, pointsLength,
              "The editor reads no points at all when E and I differ in length."),
        error("points-null", notInSchemas, pointsNull,
              "null stands for what was no number; the editor reads it as 0."),
        warning("few-points", fewPoints, "Two points make no spectrum."),
        warning("energies-order", energiesOrder,
                "Many programs want ascending energies, the resampling of the editor among them."),
        warning("energies-repeat", energiesRepeat, "A spectrum has one intensity at each energy."),
        warning("energies-range", energiesRange,
                "Photoionisation happens between 1 and 1,500 eV; the unit may be another one."),
        warning("no-intensity", noIntensity, "A spectrum without any signal shows nothing."),
        warning("even-lines", evenLines,
                "A thousand evenly spaced points are a curve, which is drawn as sticks here."),
        warning("many-digits", manyDigits, "The editor rounds to six digits when it loads."),
        warning("doi", doi, "A DOI that cannot be resolved cites nothing."),
        warning("created-date", createdDate, "Datasets are sorted by the day of their making."),
        warning("created-later", createdLater, "Nothing was made on a day that is still to come."),
    };
}

QList<Rule> otherRules()
{
    return {
        warning("changed-text", TextRules::changedByEditor,
                "What was meant should be written so that editing leaves it as it is."),
        across("same-cas-number", FolderRules::sameCasNumber,
               "Two entries for one substance will diverge."),
        across("same-inchi", FolderRules::sameInchi, "Two entries for one substance will diverge."),
        across("stepping-order", FolderRules::steppingOrder,
               "Entries are numbered differently when a script lists the files itself."),
    };
}

Finding finding(const Rule& rule, const Selection& selection, const QString& file,
                const QString& place, const QString& text)
{
    const Severity severity = selection.strict ? Severity::Error : rule.severity;
    return {file, place, QString::fromLatin1(rule.name), severity, text};
}

bool isAsked(const Rule& rule, const Selection& selection)
{
    return !selection.disabled.contains(QString::fromLatin1(rule.name));
}

} // namespace

const QList<Rule>& all()
{
    static const QList<Rule> table =
        structureRules() + speciesRules() + spectrumRules() + otherRules();
    return table;
}

bool isRule(const QString& name)
{
    return std::any_of(all().begin(), all().end(),
                       [&name](const Rule& rule) { return name == QLatin1StringView(rule.name); });
}

Judgement judge(const EntryFile& file, const Selection& selection)
{
    Judgement judgement;
    for (const Rule& rule : all()) {
        if (rule.check == nullptr || !isAsked(rule, selection))
            continue;
        qsizetype count = 0;
        rule.check(file, [&](const QString& place, const QString& text) {
            if (++count <= mostOfOneRule)
                judgement.findings.append(finding(rule, selection, file.path, place, text));
        });
        if (count > mostOfOneRule)
            judgement.further.insert(QString::fromLatin1(rule.name), count - mostOfOneRule);
    }
    return judgement;
}

QList<Finding> ToldOfFile::admit(const Judgement& judgement)
{
    QList<Finding> admitted;
    for (const Finding& finding : judgement.findings) {
        if (++told[finding.rule] <= mostOfOneRule)
            admitted.append(finding);
        else
            ++further[finding.rule];
    }
    for (auto rule = judgement.further.begin(); rule != judgement.further.end(); ++rule)
        further[rule.key()] += *rule;
    return admitted;
}

QList<Finding> ToldOfFile::endFile(const QString& file)
{
    QList<Finding> findings;
    for (const Rule& rule : all()) {
        const auto count = further.constFind(QString::fromLatin1(rule.name));
        if (count != further.constEnd()) {
            findings.append(finding(rule, selection, file, {},
                                    u"There are %1 more of this rule in the file."_s.arg(*count)));
        }
    }
    told.clear();
    further.clear();
    return findings;
}

QList<Finding> compare(const QList<FileSummary>& files, const Selection& selection)
{
    QList<Finding> findings;
    for (const Rule& rule : all()) {
        if (rule.compare == nullptr || !isAsked(rule, selection))
            continue;
        rule.compare(files, [&](const QString& path, const QString& place, const QString& text) {
            findings.append(finding(rule, selection, path, place, text));
        });
    }
    return findings;
}

} // namespace Rules
