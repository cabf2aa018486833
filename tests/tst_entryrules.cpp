// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/rules.h"

#include <QBuffer>
#include <QDate>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QJsonObject goodDataset()
{
    return {{u"Title"_s, u"<sup>1</sup>Σ<sup>+</sup>, T < 300 K"_s},
            {u"Uploader"_s, u"A. Person"_s},
            {u"DOI"_s, u"10.1234/abc-5"_s},
            {u"SpectType"_s, 4},
            {u"FurtherRefs"_s, u"one<br>two"_s},
            {u"T"_s, u"0"_s},
            {u"FurtherComments"_s, QString()},
            {u"CreatedDate"_s, u"2026-11-21"_s},
            {u"FacilityDate"_s, QString()},
            {u"LineSpectrum"_s, true},
            {u"LevelOfTheory"_s, u"Morse oscillators"_s},
            {u"ConvolutionFWHM"_s, QString()},
            {u"AIE"_s, u"9.2642"_s},
            {u"E"_s, QJsonArray{9.2642, 9.55481, 9.84138}},
            {u"I"_s, QJsonArray{494.517, 1000, 0}}};
}

QJsonObject goodSpecies()
{
    return {{u"Name"_s, u"Nitric oxide"_s},
            {u"Aliases"_s, u"nitrogen monoxide<br>oxidonitrogen"_s},
            {u"Mass"_s, 30.0061},
            {u"Formula"_s, u"NO"_s},
            {u"InChI"_s, u"InChI=1S/NO/c1-2"_s},
            {u"CAS"_s, u"10102-43-9"_s},
            {u"PubChem"_s, u"145068"_s},
            {u"AIE"_s, u"9.2642 ± 0.00002"_s},
            {u"VIE"_s, u"9.55"_s},
            {u"AIE_Comment"_s, u"doi:10.1234/x"_s},
            {u"VIE_Comment"_s, QString()}};
}

QJsonObject goodEntry()
{
    return {{u"Type"_s, u"Species v1"_s},
            {u"Species"_s, goodSpecies()},
            {u"Dataset1"_s, goodDataset()}};
}

QJsonObject goodDatabase()
{
    QJsonObject entry = goodEntry();
    entry.remove(u"Type"_s);
    return {{u"Type"_s, u"Database v1"_s},
            {u"Header"_s, QJsonObject{{u"Version"_s, u"1.0"_s},
                                      {u"Database"_s, u"3.0"_s},
                                      {u"Title"_s, u"t"_s},
                                      {u"Date"_s, u"2026-11-21"_s}}},
            {u"Entry1"_s, entry}};
}

/// The object with another value at a place such as "Dataset1/E"; without it when there is none.
QJsonObject with(QJsonObject object, const QString& place, const QJsonValue& value)
{
    const QString key = place.section(u'/', 0, 0);
    const QString rest = place.section(u'/', 1);
    if (!rest.isEmpty())
        object.insert(key, with(object.value(key).toObject(), rest, value));
    else if (value.isUndefined())
        object.remove(key);
    else
        object.insert(key, value);
    return object;
}

QByteArray text(const QJsonObject& object)
{
    return QJsonDocument(object).toJson();
}

/// A good entry with one other value.
QByteArray entryWith(const QString& place, const QJsonValue& value)
{
    return text(with(goodEntry(), place, value));
}

/// A good entry whose dataset has other points.
QByteArray entryWithPoints(const QJsonArray& energies, const QJsonArray& intensities)
{
    return text(with(with(goodEntry(), u"Dataset1/E"_s, energies), u"Dataset1/I"_s, intensities));
}

QByteArray entryWithEvenLines(int count)
{
    QJsonArray energies;
    QJsonArray intensities;
    for (int i = 0; i < count; ++i) {
        energies.append((9000 + i) / 1000.0);
        intensities.append(i);
    }
    return entryWithPoints(energies, intensities);
}

QString pictureText(const char* format)
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return QString::fromLatin1(bytes.toBase64());
}

QList<Finding> findingsIn(const QByteArray& bytes, const Rules::Selection& selection = {})
{
    Rules::ToldOfFile told(selection);
    const auto judgement = Rules::judge(EntryFiles::fromBytes(u"f.json"_s, bytes), selection);
    QList<Finding> findings = told.admit(judgement);
    findings += told.endFile(u"f.json"_s);
    return findings;
}

QString ruleAndPlace(const Finding& finding)
{
    return finding.rule + u' ' + finding.place;
}

QString listed(const QList<Finding>& findings)
{
    QStringList lines;
    for (const Finding& finding : findings)
        lines.append(ruleAndPlace(finding));
    return lines.join(u", "_s);
}

} // namespace

/// Each rule with what it complains about, and with what it must leave alone.
class TestEntryRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodFilesHaveNoFindings_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("entry") << text(goodEntry());
        QTest::newRow("database") << text(goodDatabase());
        QTest::newRow("spectrum") << text(with(goodDataset(), u"Type"_s, u"Spectrum v1"_s));
        QTest::newRow("PNG") << entryWith(u"Species/StructuralFormula"_s, pictureText("PNG"));
        QTest::newRow("cleared picture") << entryWith(u"Species/StructuralFormula"_s, QString());
        QTest::newRow("no mass") << entryWith(u"Species/Mass"_s, 0);
        QTest::newRow("rounded mass") << entryWith(u"Species/Mass"_s, 30.01);
        QTest::newRow("mass of the main isotopes") << entryWith(u"Species/Mass"_s, 29.997989);
        QTest::newRow("energies without uncertainty") << entryWith(u"Species/AIE"_s, u"9.264"_s);
        QTest::newRow("CAS number with blanks")
            << entryWith(u"Species/CAS"_s, u" 10102-43-9"_s).replace(" 10102", "10102");
        QTest::newRow("DOI with the resolver")
            << entryWith(u"Dataset1/DOI"_s, u"https://doi.org/10.1234/x(5)y"_s);
        QTest::newRow("two DOIs") << entryWith(u"Dataset1/DOI"_s, u"10.1234/x<br>10.1234/y"_s);
        QTest::newRow("several DOIs")
            << entryWith(u"Dataset1/DOI"_s, u"doi:10.1234/x, https://doi.org/10.1234/y"_s);
        QTest::newRow("six digits")
            << entryWithPoints({9.26421, 123456, 123457}, {1e-07, 123456e3, 0.00123456})
                   .replace("123456,", "1000.12,")
                   .replace("123457", "1100");
        QTest::newRow("few even lines") << entryWithEvenLines(999);
        QTest::newRow("curve") << QByteArray(entryWithEvenLines(1000))
                                      .replace("\"LineSpectrum\": true", "\"LineSpectrum\": false");
        QTest::newRow("today") << entryWith(u"Dataset1/CreatedDate"_s,
                                            QDate::currentDate().toString(Qt::ISODate));
    }

    void goodFilesHaveNoFindings()
    {
        QFETCH(const QByteArray, file);
        QCOMPARE(listed(findingsIn(file)), QString());
    }

    void wrongFilesAreComplainedAbout_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("expected");
        addWrongStructures();
        addWrongSpecies();
        addWrongEnergies();
        addWrongPoints();
        addWrongTexts();
    }

    void wrongFilesAreComplainedAbout()
    {
        QFETCH(const QByteArray, file);
        QFETCH(const QString, expected);
        const QList<Finding> findings = findingsIn(file);
        QCOMPARE(listed(findings), expected);
        for (const Finding& finding : findings) {
            QCOMPARE(finding.file, u"f.json"_s);
            QVERIFY2(finding.text.endsWith(u'.'), qPrintable(finding.text));
        }
    }

    void everyRuleIsComplainedAboutSomewhere()
    {
        wrongFilesAreComplainedAbout_data();
        QSet<QString> seen{u"unreadable"_s};
        for (const QByteArray& file : std::as_const(files)) {
            for (const Finding& finding : findingsIn(file))
                seen.insert(finding.rule);
        }
        for (const Rules::Rule& rule : Rules::all()) {
            if (rule.check != nullptr)
                QVERIFY2(seen.contains(QString::fromLatin1(rule.name)), rule.name);
        }
    }

    void rulesHaveNamesOfTheirOwn()
    {
        QSet<QString> names;
        for (const Rules::Rule& rule : Rules::all()) {
            QVERIFY2((rule.check == nullptr) != (rule.compare == nullptr), rule.name);
            QVERIFY2(!names.contains(QString::fromLatin1(rule.name)), rule.name);
            names.insert(QString::fromLatin1(rule.name));
        }
        QVERIFY(Rules::isRule(u"cas-number"_s));
        QVERIFY(!Rules::isRule(u"cas"_s));
    }

    void whatTheSchemasRefuseIsAnError()
    {
        for (const Rules::Rule& rule : Rules::all())
            QVERIFY2(!rule.inSchemas || rule.severity == Severity::Error, rule.name);
    }

    void missingFileIsUnreadable()
    {
        const EntryFile file = EntryFiles::read(u"/nonexistent/a.json"_s);
        QCOMPARE(listed(Rules::judge(file, {}).findings), u"unreadable "_s);
    }

    void folderIsUnreadable()
    {
        QCOMPARE(listed(Rules::judge(EntryFiles::read(u"/"_s), {}).findings), u"unreadable "_s);
    }

    void ruleCanBeSwitchedOff()
    {
        const QByteArray file = entryWith(u"Species/CAS"_s, u"1"_s);
        QCOMPARE(findingsIn(file).size(), 1);
        QCOMPARE(findingsIn(file, {{u"cas-number"_s}, false}).size(), 0);
    }

    void strictMakesWarningsErrors()
    {
        const QByteArray file = entryWith(u"Species/Name"_s, QString());
        QCOMPARE(findingsIn(file).constFirst().severity, Severity::Warning);
        QCOMPARE(findingsIn(file, {{}, true}).constFirst().severity, Severity::Error);
    }

    void wrongAllOverIsToldAHundredTimes()
    {
        QJsonObject entry = goodEntry();
        for (int i = 0; i < 5000; ++i)
            entry.insert(u"Other%1"_s.arg(i), i);
        const QList<Finding> findings = findingsIn(text(entry));
        QCOMPARE(findings.size(), 101);
        QVERIFY(findings.constLast().text.contains(u"4900 more"_s));
    }

    void filesAreCompared()
    {
        QJsonObject other = with(goodEntry(), u"Species/InChI"_s, u"InChI=1S/NO/c2-1"_s);
        const QList<FileSummary> summaries{
            FileSummary::of(EntryFiles::fromBytes(u"d/a2.json"_s, text(goodEntry()))),
            FileSummary::of(EntryFiles::fromBytes(u"d/a10.json"_s, text(other))),
            FileSummary::of(EntryFiles::fromBytes(u"e/b.json"_s, text(goodDatabase()))),
        };
        const QList<Finding> findings = Rules::compare(summaries, {});
        QCOMPARE(listed(findings),
                 u"same-cas-number /Species/CAS, same-cas-number /Entry1/Species/CAS, "
                 "same-inchi /Entry1/Species/InChI, stepping-order "_s);
        QCOMPARE(findings.at(0).file, u"d/a10.json"_s);
        QVERIFY(findings.at(0).text.contains(u"d/a2.json"_s));
        QCOMPARE(findings.at(2).file, u"e/b.json"_s);
        QCOMPARE(findings.at(3).file, u"d/a2.json"_s);
    }

    void namesThatStepAsTheyReadAreLeftAlone()
    {
        QList<FileSummary> summaries;
        for (const QString& name : {u"d/a02.json"_s, u"d/a10.json"_s, u"e/a1.json"_s})
            summaries.append({name, {}});
        QCOMPARE(listed(Rules::compare(summaries, {})), QString());
    }

private:
    void add(const char* name, const QByteArray& file, const QString& expected)
    {
        QTest::newRow(name) << file << expected;
        files.append(file);
    }

    void addWrongStructures()
    {
        add("no JSON", "{", u"not-json "_s);
        add("empty", "", u"not-json "_s);
        add("NaN", "{\"Type\": NaN}", u"not-json "_s);
        add("bare line feed", text(goodEntry()).replace("A. Person", "A.\nPerson"),
            u"not-json , changed-text /Dataset1/Uploader"_s);
        add("byte order mark", "\xef\xbb\xbf" + text(goodEntry()), u"byte-order-mark "_s);
        add("no type", "{}", u"unknown-type "_s);
        add("array", "[]", u"unknown-type "_s);
        add("other type", R"({"Type": "Species v2"})", u"unknown-type /Type"_s);
        add("type is a number", R"({"Type": 1})", u"unknown-type /Type"_s);
        add("no species", entryWith(u"Species"_s, QJsonValue::Undefined), u"missing-member "_s);
        add("no T", entryWith(u"Dataset1/T"_s, QJsonValue::Undefined),
            u"missing-member /Dataset1"_s);
        add("further member", entryWith(u"Dataset1/a~b\u00e4"_s, 1),
            u"unknown-member /Dataset1/a~0bä"_s);
        add("repeated member", text(goodEntry()).replace("\"T\":", "\"Title\":\"x\",\"T\":"),
            u"repeated-member /Dataset1/Title"_s);
        add("repeated dataset", "{\"Dataset\\u0031\": {}," + text(goodEntry()).sliced(1),
            u"repeated-dataset /Dataset1"_s);
        add("dataset with a zero", entryWith(u"Dataset01"_s, goodDataset()),
            u"unknown-member /Dataset01, repeated-dataset /Dataset1"_s);
        add("dataset is an array", entryWith(u"Dataset2"_s, QJsonArray()),
            u"wrong-kind /Dataset2"_s);
        add("mass is a text", entryWith(u"Species/Mass"_s, u"30"_s), u"wrong-kind /Species/Mass"_s);
        add("energies are texts", entryWithPoints({u"9"_s, 10, u"11"_s}, {1, 2, 3}),
            u"wrong-kind /Dataset1/E/0"_s);
        add("type of a seventh kind",
            text(with(with(goodDatabase(), u"Entry1/Dataset1/SpectType"_s, 4.5),
                      u"Entry1/Dataset1/Source"_s, u"a"_s)),
            u"missing-member /Entry1/Dataset1, missing-member /Entry1/Dataset1, "
            "unknown-member /Entry1/Dataset1/AIE, unknown-member /Entry1/Dataset1/ConvolutionFWHM, "
            "unknown-member /Entry1/Dataset1/LevelOfTheory, spectrum-type /Entry1/Dataset1/SpectType"_s);
        add("date of a database", text(with(goodDatabase(), u"Header/Date"_s, u"today"_s)),
            u"database-date /Header/Date"_s);
        add("BMP", entryWith(u"Species/StructuralFormula"_s, pictureText("BMP")),
            u"picture-form /Species/StructuralFormula"_s);
    }

    void addWrongSpecies()
    {
        add("truncated PNG",
            entryWith(u"Species/StructuralFormula"_s, pictureText("PNG").first(40)),
            u"picture-unreadable /Species/StructuralFormula"_s);
        add("check digit", entryWith(u"Species/CAS"_s, u"10102-43-8"_s),
            u"cas-number /Species/CAS"_s);
        add("no name", entryWith(u"Species/Name"_s, QString()), u"name-missing /Species/Name"_s);
        add("no formula", entryWith(u"Species/Formula"_s, QString()),
            u"formula-missing /Species/Formula"_s);
        add("no InChI", entryWith(u"Species/InChI"_s, QString()),
            u"inchi-missing /Species/InChI"_s);
        add("InChI of another kind", entryWith(u"Species/InChI"_s, u"InChI=1/NO/c1-2"_s),
            u"inchi-form /Species/InChI"_s);
        add("InChI of another species", entryWith(u"Species/InChI"_s, u"InChI=1S/N2/c1-2"_s),
            u"inchi-formula /Species/InChI"_s);
        add("ion's formula", entryWith(u"Species/Formula"_s, u"NO<sup>+</sup>"_s),
            u"inchi-formula /Species/InChI"_s);
        add("mass of another species", entryWith(u"Species/Mass"_s, 31.0061),
            u"mass-formula /Species/Mass"_s);
        add("wrong DOI in a comment", entryWith(u"Species/VIE_Comment"_s, u"doi: 11.1/x"_s),
            u"comment-doi /Species/VIE_Comment"_s);
    }

    void addWrongEnergies()
    {
        for (const char* energy : {"9,26", "ca. 9.3", "9.26 +- 0.1", "9.26 eV", "9.26(5)"}) {
            add(energy, entryWith(u"Species/VIE"_s, QString::fromLatin1(energy)),
                u"energy-form /Species/VIE"_s);
        }
        add("meV", entryWith(u"Species/VIE"_s, u"9550"_s), u"energy-range /Species/VIE"_s);
        add("hartree", entryWith(u"Species/AIE"_s, u"0.34"_s),
            u"energy-range /Species/AIE, energy-transition /Species/AIE"_s);
        add("AIE above VIE", entryWith(u"Species/VIE"_s, u"9.2"_s), u"energy-order /Species/AIE"_s);
        add("0-0 transition elsewhere", entryWith(u"Dataset1/AIE"_s, u"9.4"_s),
            u"energy-transition /Species/AIE"_s);
    }

    void addWrongPoints()
    {
        add("lengths differ", entryWithPoints({9, 10, 11}, {1, 2}), u"points-length /Dataset1"_s);
        add("null", entryWithPoints({9, 10, 11}, {1, {}, 3}), u"points-null /Dataset1/I/1"_s);
        add("two points", entryWithPoints({9, 10}, {1, 2}), u"few-points /Dataset1/E"_s);
        add("falling", entryWithPoints({9, 11, 10}, {1, 2, 3}), u"energies-order /Dataset1/E/2"_s);
        add("repeating", entryWithPoints({9, 9, 10}, {1, 2, 3}),
            u"energies-repeat /Dataset1/E/1"_s);
        add("nanometres", entryWithPoints({9, 10, 1600}, {1, 2, 3}),
            u"energies-range /Dataset1/E/2"_s);
        add("zero", entryWithPoints({0, 10, 11}, {1, 2, 3}), u"energies-range /Dataset1/E/0"_s);
        add("no signal", entryWithPoints({9, 10, 11}, {0, -1, 0}), u"no-intensity /Dataset1/I"_s);
        add("even lines", entryWithEvenLines(1000), u"even-lines /Dataset1/LineSpectrum"_s);
        add("seven digits", entryWithPoints({9, 10.12345, 11}, {1, 2, 1234567}),
            u"many-digits /Dataset1/E/1, many-digits /Dataset1/I/2"_s);
    }

    void addWrongTexts()
    {
        add("DOI with pages in brackets, which are lost",
            entryWith(u"Dataset1/DOI"_s, u"10.1002/(SICI)1097(1999)13:13<1234::AID-X>3.0.CO;2-X"_s),
            u"foreign-tags /Dataset1/DOI"_s);
        add("DOI", entryWith(u"Dataset1/DOI"_s, u"10.1234"_s), u"doi /Dataset1/DOI"_s);
        add("no day", entryWith(u"Dataset1/CreatedDate"_s, u"21.11.2026"_s),
            u"created-date /Dataset1/CreatedDate"_s);
        add("30 February", entryWith(u"Dataset1/CreatedDate"_s, u"2026-02-30"_s),
            u"created-date /Dataset1/CreatedDate"_s);
        add("future", entryWith(u"Dataset1/CreatedDate"_s, u"2999-01-01"_s),
            u"created-later /Dataset1/CreatedDate"_s);
        add("foreign tag", entryWith(u"Species/Name"_s, u"<b>NO</b>"_s),
            u"foreign-tags /Species/Name"_s);
        add("foreign tag in a text as it is", entryWith(u"Dataset1/LevelOfTheory"_s, u"<b>x</b>"_s),
            u"changed-text /Dataset1/LevelOfTheory"_s);
        add("entity", entryWith(u"Dataset1/Title"_s, u"a &lt; b"_s),
            u"changed-text /Dataset1/Title"_s);
        add("two blanks", entryWith(u"Dataset1/Title"_s, u"a  b"_s),
            u"changed-text /Dataset1/Title"_s);
        add("line feeds", entryWith(u"Species/Aliases"_s, u"a\nb"_s),
            u"changed-text /Species/Aliases"_s);
        add("open tag", entryWith(u"Species/Name"_s, u"H<sub>2O"_s),
            u"changed-text /Species/Name"_s);
    }

    QList<QByteArray> files;
};

QTEST_MAIN(TestEntryRules)
#include "tst_entryrules.moc"
