// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesfolder.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

/// Finding the species files of a folder, without a window.
class TestSpeciesFolder : public QObject
{
    Q_OBJECT

    using Outcome = SpeciesFolder::Step::Outcome;

    static void writeSpecies(const Sandbox& sandbox, const QString& fileName)
    {
        sandbox.write(fileName, TestSupport::speciesFile(fileName));
    }

    static QString nameOf(const std::optional<SpeciesFolder::Found>& found)
    {
        return found ? QFileInfo(found->path).fileName() : QString();
    }

private Q_SLOTS:
    void folderWithoutJsonFilesIsEmpty()
    {
        const Sandbox sandbox;
        sandbox.write(u"notes.txt"_s, TestSupport::speciesFile(u"He"_s));
        QVERIFY(QDir(sandbox.path()).mkdir(u"folder.json"_s));
        const SpeciesFolder folder(sandbox.path());
        QVERIFY(folder.isEmpty());
        QVERIFY(!folder.first());
        QVERIFY(SpeciesFolder(sandbox.path(u"none"_s)).isEmpty());
    }

    void firstIsTheFirstSpeciesFileInSteppingOrder()
    {
        const Sandbox sandbox;
        sandbox.write(u"a1.json"_s, TestSupport::spectrumFile(u"no species"_s));
        for (const auto& name : {u"a10.json"_s, u"a2.json"_s, u"B1.json"_s})
            writeSpecies(sandbox, name);
        const SpeciesFolder folder(sandbox.path());
        QVERIFY(!folder.isEmpty());
        const auto found = folder.first();
        QVERIFY(found);
        QCOMPARE(found->path, sandbox.path(u"a2.json"_s));
        QCOMPARE(found->content[u"Species"][u"Name"].toString(), u"a2.json"_s);
    }

    void stepSaysWhereItLeadsOrWhyNot_data()
    {
        QTest::addColumn<QStringList>("species");
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("direction");
        QTest::addColumn<Outcome>("outcome");
        QTest::addColumn<QString>("found");
        const QStringList three{u"a.json"_s, u"b.json"_s, u"c.json"_s};
        const QString none;
        QTest::newRow("nothing there")
            << QStringList() << none << 0 << Outcome::NoJsonFiles << none;
        QTest::newRow("first") << three << none << 0 << Outcome::Found << u"a.json"_s;
        QTest::newRow("from a folder") << three << none << 1 << Outcome::NoFileToStepFrom << none;
        QTest::newRow("next") << three << u"b.json"_s << 1 << Outcome::Found << u"c.json"_s;
        QTest::newRow("previous") << three << u"b.json"_s << -1 << Outcome::Found << u"a.json"_s;
        QTest::newRow("around") << three << u"c.json"_s << 1 << Outcome::Found << u"a.json"_s;
        QTest::newRow("first beside a file")
            << three << u"c.json"_s << 0 << Outcome::Found << u"a.json"_s;
        QTest::newRow("not there") << three << u"d.json"_s << 1 << Outcome::FileNotInFolder << none;
        QTest::newRow("alone") << QStringList(u"a.json"_s) << u"a.json"_s << 1
                               << Outcome::NoOtherSpeciesFiles << none;
    }

    void stepSaysWhereItLeadsOrWhyNot()
    {
        QFETCH(const QStringList, species);
        QFETCH(const QString, from);
        QFETCH(const int, direction);
        QFETCH(const Outcome, outcome);
        const Sandbox sandbox;
        for (const QString& name : species)
            writeSpecies(sandbox, name);
        const SpeciesFolder::Step step = SpeciesFolder::step(sandbox.path(from), direction);
        QCOMPARE(step.outcome, outcome);
        QTEST(QFileInfo(step.found.path).fileName(), "found");
        QCOMPARE(step.found.content.isEmpty(), outcome != Outcome::Found);
    }

    void stepIntoAFolderWithoutSpeciesFilesSaysSo()
    {
        const Sandbox sandbox;
        sandbox.write(u"a.json"_s, "{}");
        QCOMPARE(SpeciesFolder::step(sandbox.path(), 0).outcome, Outcome::NoSpeciesFiles);
    }

    void folderWithoutSpeciesFilesHasNoFirst()
    {
        const Sandbox sandbox;
        sandbox.write(u"a.json"_s, "no JSON");
        const SpeciesFolder folder(sandbox.path());
        QVERIFY(!folder.isEmpty());
        QVERIFY(!folder.first());
    }

    void namesAreComparedExactly()
    {
        const Sandbox sandbox;
        writeSpecies(sandbox, u"He.json"_s);
        const SpeciesFolder folder(sandbox.path());
        QVERIFY(folder.contains(u"He.json"_s));
        QVERIFY(!folder.contains(u"he.json"_s));
        QVERIFY(!folder.contains(u"He"_s));
    }

    void neighboursWrapAround_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("previous");
        QTest::addColumn<QString>("next");
        QTest::newRow("first") << u"a2.json"_s << u"B1.json"_s << u"a10.json"_s;
        QTest::newRow("between") << u"a10.json"_s << u"a2.json"_s << u"B1.json"_s;
        QTest::newRow("last") << u"B1.json"_s << u"a10.json"_s << u"a2.json"_s;
    }
    void neighboursWrapAround()
    {
        QFETCH(const QString, from);
        const Sandbox sandbox;
        for (const auto& name : {u"a10.json"_s, u"a2.json"_s, u"B1.json"_s})
            writeSpecies(sandbox, name);
        const SpeciesFolder folder(sandbox.path());
        QTEST(nameOf(folder.neighbour(from, -1)), "previous");
        QTEST(nameOf(folder.neighbour(from, 1)), "next");
    }

    void filesThatAreNoSpeciesFilesAreSkipped()
    {
        const Sandbox sandbox;
        writeSpecies(sandbox, u"a.json"_s);
        sandbox.write(u"b.json"_s, TestSupport::spectrumFile(u"s"_s));
        sandbox.write(u"c.json"_s, "no JSON");
        writeSpecies(sandbox, u"d.json"_s);
        sandbox.write(u"e.json"_s, "");
        const SpeciesFolder folder(sandbox.path());
        QCOMPARE(nameOf(folder.neighbour(u"a.json"_s, 1)), u"d.json"_s);
        QCOMPARE(nameOf(folder.neighbour(u"a.json"_s, -1)), u"d.json"_s);
        // Also from a file that is none.
        QCOMPARE(nameOf(folder.neighbour(u"c.json"_s, 1)), u"d.json"_s);
        QCOMPARE(nameOf(folder.neighbour(u"c.json"_s, -1)), u"a.json"_s);
    }

    void onlySpeciesFileHasNoNeighbours()
    {
        const Sandbox sandbox;
        writeSpecies(sandbox, u"a.json"_s);
        QVERIFY(!SpeciesFolder(sandbox.path()).neighbour(u"a.json"_s, 1));
        sandbox.write(u"b.json"_s, "no JSON");
        QVERIFY(!SpeciesFolder(sandbox.path()).neighbour(u"a.json"_s, 1));
        QVERIFY(!SpeciesFolder(sandbox.path()).neighbour(u"a.json"_s, -1));
    }

    void fileOfAnotherFolderHasNoNeighbours()
    {
        const Sandbox sandbox;
        writeSpecies(sandbox, u"a.json"_s);
        QVERIFY(!SpeciesFolder(sandbox.path()).neighbour(u"elsewhere.json"_s, 1));
    }

    void fileThatHasGoneSinceTheListingIsSkipped()
    {
        const Sandbox sandbox;
        for (const auto& name : {u"a.json"_s, u"b.json"_s, u"c.json"_s})
            writeSpecies(sandbox, name);
        const SpeciesFolder folder(sandbox.path());
        QVERIFY(QFile::remove(sandbox.path(u"b.json"_s)));
        QCOMPARE(nameOf(folder.neighbour(u"a.json"_s, 1)), u"c.json"_s);
    }
};

QTEST_MAIN(TestSpeciesFolder)
#include "tst_speciesfolder.moc"
