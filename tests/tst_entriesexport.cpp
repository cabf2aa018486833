// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/entriesprogram.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using TestSupport::ProgramRun;

/// "export" of the console program.
class TestEntriesExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        sandbox->write(u"water.json"_s, entry(u"Water"_s));
    }

    void cleanup() { sandbox.reset(); }

    void csvHasCommentsAHeadingAndPoints()
    {
        QCOMPARE(exported(u"csv"_s, u"out"_s, {u"water.json"_s}).exitCode, 0);
        QCOMPARE(filesIn(u"out"_s), (QStringList{u"Water-1.csv"_s, u"Water-2.csv"_s}));
        QCOMPARE(
            sandbox->read(u"out/Water-2.csv"_s),
            QByteArray(
                "# mass_amu: 18.0153\n# spectrum_type: TPES\n# line_spectrum: no\n"
                "# name: Water\n# aliases: oxidane; H₂O\n# formula: H₂O\n"
                "# cas: 7732-18-5\n# aie: 12.621 ± 0.002\n# title: ²Π1/2\n# uploader: A. Person\n"
                "# created: 2026-11-21\n# comments: one; two\n"
                "photon_energy_eV,intensity\n12.5,-1\n12.6,1e-07\n12.75,1000.25\n"));
    }

    /// A spreadsheet ends cells at commas and semicolons, in comments, too.
    void commentsAreNoFormulasInSpreadsheets()
    {
        sandbox->write(u"water.json"_s,
                       entry(u"1,2-\"x\",\"y"_s, u"=1+1<br>a,=1+1;@b;-c,+d, =e;\"f,g"_s));
        QCOMPARE(exported(u"csv"_s, u"out"_s, {u"water.json"_s}).exitCode, 0);
        const QByteArray text = sandbox->read(u"out/1-2-x-y-1.csv"_s);
        QVERIFY(text.contains("\n# name: 1,2-\"x\", \"y\n"));
        QVERIFY(text.contains("\n# comments: =1+1; a, =1+1; @b; -c, +d, =e; \"f,g\n"));
    }

    void jcampHasCurvesAndPeaks()
    {
        QCOMPARE(exported(u"jcamp"_s, u"out"_s, {u"water.json"_s}).exitCode, 0);
        QCOMPARE(filesIn(u"out"_s), (QStringList{u"Water-1.jdx"_s, u"Water-2.jdx"_s}));
        const QByteArray curve = sandbox->read(u"out/Water-2.jdx"_s);
        QVERIFY(curve.startsWith("##TITLE= Water, ²Π1/2\n##JCAMP-DX= 5.01\n"));
        QVERIFY(curve.contains("\n##DATA CLASS= XYPOINTS\n##ORIGIN= not stated\n"
                               "##OWNER= A. Person\n##LONGDATE= 2026/11/21\n"));
        QVERIFY(curve.contains("\n##CAS REGISTRY NO= 7732-18-5\n##MOLFORM= H2 O\n##MW= 18.0153\n"
                               "##NAMES= Water; oxidane; H₂O\n"));
        QVERIFY(curve.endsWith("##XUNITS= eV\n##YUNITS= ARBITRARY UNITS\n##XFACTOR= 1\n"
                               "##YFACTOR= 1\n##FIRSTX= 12.5\n##LASTX= 12.75\n##FIRSTY= -1\n"
                               "##MAXX= 12.75\n##MINX= 12.5\n##MAXY= 1000.25\n##MINY= -1\n"
                               "##NPOINTS= 3\n##XYPOINTS= (XY..XY)\n12.5, -1\n12.6, 1e-07\n"
                               "12.75, 1000.25\n##END=\n"));
        const QByteArray lines = sandbox->read(u"out/Water-1.jdx"_s);
        QVERIFY(lines.contains("\n##DATA CLASS= PEAK TABLE\n"));
        QVERIFY(lines.endsWith("\n##NPOINTS= 1\n##PEAK TABLE= (XY..XY)\n12.6, 5\n##END=\n"));
    }

    void jcampLinesAreShortAndBeginNoOtherRecord()
    {
        const QString comments =
            u"##END= $$ "_s + u"é"_s.repeated(200) + u" "_s + u"a word ##END= "_s.repeated(40);
        sandbox->write(u"water.json"_s, entry(u"Water"_s, comments));
        QCOMPARE(exported(u"jcamp"_s, u"out"_s, {u"water.json"_s}).exitCode, 0);
        const QString text = QString::fromUtf8(sandbox->read(u"out/Water-2.jdx"_s));
        for (const QString& line : text.split(u'\n'))
            QVERIFY2(line.size() <= 80, qPrintable(line));
        QCOMPARE(text.count("\n##END="_L1), 1);
        QVERIFY(!text.contains("$$"_L1));
        QCOMPARE(text.count(u'é'), 200);
    }

    void jsonLinesHaveTheSameMembersEverywhere()
    {
        sandbox->write(u"other.json"_s, entry(u"Other"_s).replace("2026-11-21", "soon"));
        QCOMPARE(exported(u"jsonl"_s, u"all.jsonl"_s, {u"water.json"_s, u"other.json"_s}).exitCode,
                 0);
        const QList<QByteArray> lines = sandbox->read(u"all.jsonl"_s).trimmed().split('\n');
        QCOMPARE(lines.size(), 4);
        const QJsonObject first = QJsonDocument::fromJson(lines.at(1)).object();
        for (const QByteArray& line : lines)
            QCOMPARE(QJsonDocument::fromJson(line).object().keys(), first.keys());
        QCOMPARE(first.value(u"name"_s).toString(), u"Water"_s);
        QCOMPARE(first.value(u"dataset"_s).toInt(), 2);
        QCOMPARE(first.value(u"aliases"_s).toArray(), (QJsonArray{u"oxidane"_s, u"H₂O"_s}));
        QCOMPARE(first.value(u"aie_ev"_s).toDouble(), 12.621);
        QVERIFY(first.value(u"vie_ev"_s).isNull());
        QCOMPARE(first.value(u"created"_s).toString(), u"2026-11-21"_s);
        QCOMPARE(first.value(u"intensity"_s).toArray(), (QJsonArray{-1, 1e-07, 1000.25}));
        const QJsonObject last = QJsonDocument::fromJson(lines.at(3)).object();
        QVERIFY(last.value(u"created"_s).isNull());
    }

    void spectraAndDatabasesAreExportedToo()
    {
        QJsonObject spectrum = dataset(true, {}, {12.6}, {5});
        spectrum.insert(u"Type"_s, u"Spectrum v1"_s);
        sandbox->write(u"spectrum.json"_s, QJsonDocument(spectrum).toJson());
        QJsonObject database{{u"Type"_s, u"Database v1"_s}};
        for (int i = 1; i <= 10; ++i) {
            database.insert(u"Entry%1"_s.arg(i),
                            QJsonDocument::fromJson(entry(u"Water"_s)).object());
        }
        sandbox->write(u"database.json"_s, QJsonDocument(database).toJson());
        QCOMPARE(exported(u"csv"_s, u"out"_s, {u"spectrum.json"_s, u"database.json"_s}).exitCode,
                 0);
        const QStringList names = filesIn(u"out"_s);
        QCOMPARE(names.size(), 21);
        QVERIFY(names.contains(u"unnamed-1.csv"_s));
        QVERIFY(names.contains(u"Water-1.csv"_s));
        QVERIFY(names.contains(u"Water-2-10.csv"_s));
    }

    void existingFilesAreReplacedOnlyByForce()
    {
        QDir(sandbox->path()).mkdir(u"out"_s);
        sandbox->write(u"out/Water-1.csv"_s, "mine");
        const ProgramRun refused = exported(u"csv"_s, u"out"_s, {u"water.json"_s});
        QCOMPARE(refused.exitCode, 2);
        QCOMPARE(refused.errors,
                 QByteArray("korvela-entries: out/Water-1.csv exists; --force replaces it.\n"));
        QCOMPARE(sandbox->read(u"out/Water-1.csv"_s), QByteArray("mine"));
        QCOMPARE(filesIn(u"out"_s).size(), 2); // the other one was written
        QCOMPARE(exported(u"csv"_s, u"out"_s, {u"water.json"_s, u"--force"_s}).exitCode, 0);
        QVERIFY(sandbox->read(u"out/Water-1.csv"_s).startsWith("# mass_amu"));

        sandbox->write(u"all.jsonl"_s, "mine");
        QCOMPARE(exported(u"jsonl"_s, u"all.jsonl"_s, {u"water.json"_s}).exitCode, 2);
        QCOMPARE(sandbox->read(u"all.jsonl"_s), QByteArray("mine"));
    }

    void inputIsNotOverwrittenEvenByForce()
    {
        const QByteArray before = sandbox->read(u"water.json"_s);
        const ProgramRun run =
            exported(u"jsonl"_s, u"./water.json"_s, {u"water.json"_s, u"--force"_s});
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.errors, QByteArray("korvela-entries: ./water.json is one of the files to "
                                        "export; it would be lost.\n"));
        QCOMPARE(sandbox->read(u"water.json"_s), before);
    }

    void fileNamesAreSafe_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("file");
        QTest::newRow("markup") << u"H<sub>2</sub>O"_s << u"H2O-1.csv"_s;
        QTest::newRow("folders") << u"../../etc/passwd"_s << u"etc-passwd-1.csv"_s;
        QTest::newRow("backslash") << u"a\\b:c*d?"_s << u"a-b-c-d-1.csv"_s;
        QTest::newRow("device") << u"CON"_s << u"CON-1.csv"_s;
        QTest::newRow("blanks and dots") << u" . a. "_s << u"a-1.csv"_s;
        QTest::newRow("empty") << QString() << u"unnamed-1.csv"_s;
        QTest::newRow("no letters") << u"///"_s << u"unnamed-1.csv"_s;
        QTest::newRow("accents") << u"Métaldéhyde"_s << u"Metaldehyde-1.csv"_s;
        QTest::newRow("Greek") << u"α-Pinene"_s << u"alpha-Pinene-1.csv"_s;
        QTest::newRow("option") << u"--force"_s << u"force-1.csv"_s;
        QTest::newRow("long") << u"x"_s.repeated(500) << u"x"_s.repeated(100) + u"-1.csv"_s;
    }

    void fileNamesAreSafe()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, file);
        sandbox->write(u"water.json"_s, entry(name));
        QCOMPARE(exported(u"csv"_s, u"out"_s, {u"water.json"_s}).exitCode, 0);
        QCOMPARE(filesIn(u"out"_s).constFirst(), file);
    }

    void namesDifferEvenWhereCaseDoesNotCount()
    {
        sandbox->write(u"lower.json"_s, entry(u"wAtEr"_s));
        QCOMPARE(exported(u"csv"_s, u"out"_s, {u"water.json"_s, u"lower.json"_s}).exitCode, 0);
        QVERIFY(filesIn(u"out"_s).contains(u"wAtEr-1-2.csv"_s));
    }

    void manyOfOneNameAreNumbered()
    {
        QJsonObject database{{u"Type"_s, u"Database v1"_s}};
        const QJsonObject unnamed = QJsonDocument::fromJson(entry(QString())).object();
        constexpr int count = 300;
        for (int i = 1; i <= count; ++i)
            database.insert(u"Entry%1"_s.arg(i), unnamed);
        sandbox->write(u"database.json"_s, QJsonDocument(database).toJson());
        QCOMPARE(exported(u"csv"_s, u"out"_s, {u"database.json"_s}).exitCode, 0);
        const QStringList names = filesIn(u"out"_s);
        QCOMPARE(names.size(), 2 * count);
        QVERIFY(names.contains(u"unnamed-1.csv"_s));
        QVERIFY(names.contains(u"unnamed-1-2.csv"_s));
        QVERIFY(names.contains(u"unnamed-2-300.csv"_s));
    }

    void lostPointsAreTold()
    {
        sandbox->write(u"water.json"_s, entry(u"Water"_s).replace("1e-07", "null"));
        const ProgramRun run = exported(u"csv"_s, u"out"_s, {u"water.json"_s});
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.errors, QByteArray("korvela-entries: water.json: /Dataset2: Points that are "
                                        "no pair of numbers are left out.\n"));
        QVERIFY(sandbox->read(u"out/Water-2.csv"_s).endsWith("\n12.5,-1\n12.75,1000.25\n"));
    }

    void oneBadFileStopsNoOther()
    {
        sandbox->write(u"bad.json"_s, "{");
        sandbox->write(u"other.json"_s, "{}");
        const ProgramRun run = exported(
            u"csv"_s, u"out"_s, {u"bad.json"_s, u"other.json"_s, u"no.json"_s, u"water.json"_s});
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.errors.count('\n'), 3);
        QCOMPARE(filesIn(u"out"_s).size(), 2);
    }

    void folderThatCannotBeMadeIsTold()
    {
        const ProgramRun run = exported(u"csv"_s, u"water.json/out"_s, {u"water.json"_s});
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.errors,
                 QByteArray("korvela-entries: The folder water.json/out cannot be made.\n"));
    }

    void missingArgumentsAreAskedFor()
    {
        QVERIFY(exported(u"xml"_s, u"out"_s, {u"water.json"_s})
                    .errors.contains("There is no format 'xml'; there are csv, jcamp and jsonl."));
        QVERIFY(exported(u"csv"_s, {}, {u"water.json"_s}).errors.contains("(--output)"));
        QVERIFY(exported(u"csv"_s, u"out"_s, {}).errors.contains("Which files or folders?"));
    }

private:
    static QJsonObject dataset(bool lines, const QString& comments, const QJsonArray& energies,
                               const QJsonArray& intensities)
    {
        return {{u"Title"_s, u"<sup>2</sup>Π<sub>1/2</sub>"_s},
                {u"Uploader"_s, u"A. Person"_s},
                {u"SpectType"_s, 2},
                {u"CreatedDate"_s, u"2026-11-21"_s},
                {u"FurtherComments"_s, comments},
                {u"LineSpectrum"_s, lines},
                {u"E"_s, energies},
                {u"I"_s, intensities}};
    }

    static QByteArray entry(const QString& name, const QString& comments = u"one<br>two"_s)
    {
        const QJsonObject species{
            {u"Name"_s, name},          {u"Aliases"_s, u"oxidane<br>H<sub>2</sub>O"_s},
            {u"Mass"_s, 18.0153},       {u"Formula"_s, u"H<sub>2</sub>O"_s},
            {u"CAS"_s, u"7732-18-5"_s}, {u"AIE"_s, u"12.621 ± 0.002"_s}};
        const QJsonObject file{
            {u"Type"_s, u"Species v1"_s},
            {u"Species"_s, species},
            {u"Dataset1"_s, dataset(true, comments, {12.6}, {5})},
            {u"Dataset2"_s, dataset(false, comments, {12.5, 12.6, 12.75}, {-1, 1e-07, 1000.25})}};
        return QJsonDocument(file).toJson();
    }

    [[nodiscard]] ProgramRun exported(const QString& format, const QString& output,
                                      const QStringList& files) const
    {
        return TestSupport::runProgram(
            QStringLiteral(KORVELA_ENTRIES_PROGRAM),
            QStringList{u"export"_s, u"--format"_s, format, u"--output"_s, output} + files,
            sandbox->path());
    }

    [[nodiscard]] QStringList filesIn(const QString& folder) const
    {
        return QDir(sandbox->path(folder)).entryList(QDir::Files, QDir::Name);
    }

    std::unique_ptr<Sandbox> sandbox;
};

QTEST_GUILESS_MAIN(TestEntriesExport)
#include "tst_entriesexport.moc"
