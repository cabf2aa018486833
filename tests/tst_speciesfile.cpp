// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesfile.h"
#include "tests/support/sandboxtest.h"

#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QJsonObject parsed(const QByteArray& text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

/// Species files: what is one, which parts it has, and how a new one is put together.
class TestSpeciesFile : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void typeDecides_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("species");
        QTest::newRow("right") << QByteArray(R"({"Type": "Species v1"})") << true;
        QTest::newRow("with more keys")
            << QByteArray(R"({"a": 1, "Type": "Species v1", "z": {}})") << true;
        QTest::newRow("lower case") << QByteArray(R"({"Type": "species v1"})") << false;
        QTest::newRow("lower-case key") << QByteArray(R"({"type": "Species v1"})") << false;
        QTest::newRow("with a blank") << QByteArray(R"({"Type": "Species v1 "})") << false;
        QTest::newRow("next version") << QByteArray(R"({"Type": "Species v10"})") << false;
        QTest::newRow("spectrum") << QByteArray(R"({"Type": "Spectrum v1"})") << false;
        QTest::newRow("database") << QByteArray(R"({"Type": "Database v1"})") << false;
        QTest::newRow("number") << QByteArray(R"({"Type": 1})") << false;
        QTest::newRow("inside an array") << QByteArray(R"({"Type": ["Species v1"]})") << false;
        QTest::newRow("null") << QByteArray(R"({"Type": null})") << false;
        QTest::newRow("no type") << QByteArray(R"({"Species": {}})") << false;
        QTest::newRow("array") << QByteArray(R"([{"Type": "Species v1"}])") << false;
        QTest::newRow("string") << QByteArray(R"("Species v1")") << false;
    }

    void typeDecides()
    {
        QFETCH(QByteArray, text);
        QFETCH(bool, species);
        QCOMPARE(SpeciesFile::isSpeciesFile(parsed(text)), species);
        QCOMPARE(SpeciesFile::isSpeciesFile(sandbox->write(u"a.json"_s, text)), species);
    }

    void unreadableFilesAreNoSpeciesFiles_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("no JSON") << QByteArray("12 5\n");
        QTest::newRow("truncated") << QByteArray(R"({"Type": "Species v1")");
        QTest::newRow("trailing comma") << QByteArray(R"({"Type": "Species v1",})");
        QTest::newRow("trailing text") << QByteArray(R"({"Type": "Species v1"} x)");
        QTest::newRow("single quotes") << QByteArray(R"({'Type': 'Species v1'})");
    }

    void unreadableFilesAreNoSpeciesFiles()
    {
        QFETCH(QByteArray, text);
        QVERIFY(!SpeciesFile::isSpeciesFile(sandbox->write(u"a.json"_s, text)));
    }

    void missingFilesAndFoldersAreNoSpeciesFiles()
    {
        QVERIFY(!SpeciesFile::isSpeciesFile(sandbox->path(u"missing.json"_s)));
        QVERIFY(!SpeciesFile::isSpeciesFile(sandbox->path()));
    }

    void speciesObjectIsTakenOrEmpty_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QJsonObject>("species");
        QTest::newRow("object") << QByteArray(R"({"Species": {"Name": "Water"}})")
                                << QJsonObject{{u"Name"_s, u"Water"_s}};
        QTest::newRow("missing") << QByteArray(R"({"Name": "Water"})") << QJsonObject();
        QTest::newRow("string") << QByteArray(R"({"Species": "Water"})") << QJsonObject();
        QTest::newRow("array") << QByteArray(R"({"Species": [{"Name": "Water"}]})")
                               << QJsonObject();
        QTest::newRow("null") << QByteArray(R"({"Species": null})") << QJsonObject();
    }

    void speciesObjectIsTakenOrEmpty()
    {
        QFETCH(QByteArray, text);
        QFETCH(QJsonObject, species);
        QCOMPARE(SpeciesFile::species(parsed(text)), species);
    }

    void keyIsADataset_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("dataset");
        const auto add = [](const QString& key, bool dataset) {
            QTest::newRow(qPrintable(key)) << key << dataset;
        };
        add(u"Dataset1"_s, true);
        add(u"Dataset0"_s, true);
        add(u"Dataset007"_s, true);
        add(u"Dataset10"_s, true);
        add(u"Dataset99999999999999999999999"_s, true);
        add(u"Dataset"_s, false);
        add(u"dataset1"_s, false);
        add(u"DATASET1"_s, false);
        add(u"Dataset1a"_s, false);
        add(u"Dataset1 "_s, false);
        add(u" Dataset1"_s, false);
        add(u"Dataset 1"_s, false);
        add(u"Dataset-1"_s, false);
        add(u"Dataset1.5"_s, false);
        add(u"MyDataset1"_s, false);
        add(u"Dataset\u0661"_s, false);
        add(u"Species"_s, false);
        add(QString(), false);
    }

    void keyIsADataset()
    {
        QFETCH(QString, key);
        QFETCH(bool, dataset);
        const QJsonObject record{{u"Title"_s, u"one"_s}};
        const QList<QJsonObject> found = SpeciesFile::datasets({{key, record}});
        QCOMPARE(found, dataset ? QList<QJsonObject>{record} : QList<QJsonObject>{});
    }

    void datasetsComeInTheOrderOfTheirKeysAsText()
    {
        QJsonObject file;
        for (int number : {9, 2, 12, 1, 10, 3, 11})
            file.insert(u"Dataset%1"_s.arg(number), QJsonObject{{u"n"_s, number}});
        file.insert(u"Dataset02"_s, QJsonObject{{u"n"_s, 102}});
        QList<int> order;
        const QList<QJsonObject> datasets = SpeciesFile::datasets(file);
        for (const QJsonObject& dataset : datasets)
            order.append(dataset[u"n"].toInt());
        QCOMPARE(order, QList<int>({102, 1, 10, 11, 12, 2, 3, 9}));
    }

    void datasetThatIsNoObjectIsAnEmptyOne()
    {
        const QJsonObject file{
            {u"Dataset1"_s, 5}, {u"Dataset2"_s, u"text"_s}, {u"Dataset3"_s, QJsonValue()}};
        QCOMPARE(SpeciesFile::datasets(file), QList<QJsonObject>({{}, {}, {}}));
    }

    void assembledFileNumbersDatasetsFromOne()
    {
        const QJsonObject species{{u"Name"_s, u"Water"_s}};
        const QJsonObject one{{u"Title"_s, u"one"_s}};
        const QJsonObject two{{u"Title"_s, u"two"_s}};
        QCOMPARE(SpeciesFile::assemble(species, {one, two}),
                 QJsonObject({{u"Type"_s, u"Species v1"_s},
                              {u"Species"_s, species},
                              {u"Dataset1"_s, one},
                              {u"Dataset2"_s, two}}));
        QCOMPARE(SpeciesFile::assemble(species, {}),
                 QJsonObject({{u"Type"_s, u"Species v1"_s}, {u"Species"_s, species}}));
    }
};

QTEST_MAIN(TestSpeciesFile)
#include "tst_speciesfile.moc"
