// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "species/speciesfile.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/dialogscript.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"

#include <QApplication>
#include <QDir>
#include <QJsonDocument>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

QJsonObject parsed(const QByteArray& text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

/// Species files: what is one, what is read from it, and what is written.
class TestSpeciesFile : public QObject
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
        const Sandbox sandbox;
        QCOMPARE(SpeciesFile::isSpeciesFile(sandbox.write(u"a.json"_s, text)), species);
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
        const Sandbox sandbox;
        QVERIFY(!SpeciesFile::isSpeciesFile(sandbox.write(u"a.json"_s, text)));
    }

    void missingFilesAndFoldersAreNoSpeciesFiles()
    {
        const Sandbox sandbox;
        QVERIFY(!SpeciesFile::isSpeciesFile(sandbox.path(u"missing.json"_s)));
        QVERIFY(!SpeciesFile::isSpeciesFile(sandbox.path()));
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

    void twelveDatasetsOpenInTheOrderOfTheirKeysAndAreSavedInIt()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        const QStringList titles{u"1"_s, u"2"_s, u"3"_s, u"4"_s,  u"5"_s,  u"6"_s,
                                 u"7"_s, u"8"_s, u"9"_s, u"10"_s, u"11"_s, u"12"_s};
        QVERIFY(window.loadSpecies(sandbox.write(u"a.json"_s, speciesFile(u"A"_s, titles))));
        QCOMPARE(spectrumTitles(window),
                 QStringList({u"1"_s, u"10"_s, u"11"_s, u"12"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s,
                              u"6"_s, u"7"_s, u"8"_s, u"9"_s}));

        trigger(window, "actionSaveSpecies");
        const QJsonObject saved = parsed(sandbox.read(u"a.json"_s));
        QCOMPARE(saved.size(), 14);
        QCOMPARE(saved[u"Dataset2"].toObject()[u"Title"].toString(), u"10"_s);
        QCOMPARE(saved[u"Dataset5"].toObject()[u"Title"].toString(), u"2"_s);
        QCOMPARE(saved[u"Dataset12"].toObject()[u"Title"].toString(), u"9"_s);
    }

    void gapsAndLeadingZerosAreClosedBySaving()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        const QString path = sandbox.write(u"a.json"_s, R"({"Type": "Species v1",
            "Species": {"Name": "A"}, "Dataset7": {"Title": "seven"},
            "Dataset003": {"Title": "three"}, "dataset1": {"Title": "lower"},
            "Dataset": {"Title": "none"}, "Dataset1b": {"Title": "letter"}, "Other": 1})");
        QVERIFY(window.loadSpecies(path));
        QCOMPARE(spectrumTitles(window), QStringList({u"three"_s, u"seven"_s}));

        trigger(window, "actionSaveSpecies");
        QCOMPARE(parsed(sandbox.read(u"a.json"_s)).keys(),
                 QStringList({u"Dataset1"_s, u"Dataset2"_s, u"Species"_s, u"Type"_s}));
    }

    void savingNumbersByCreationNotByTabs()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        const QString path =
            sandbox.write(u"a.json"_s, speciesFile(u"A"_s, {u"one"_s, u"two"_s, u"three"_s}));
        QVERIFY(window.loadSpecies(path));
        child<QMdiArea>(window, "mdiArea")->setActiveSubWindow(subWindows(window).at(1));
        trigger(window, "actionSaveSpecies");
        QJsonObject saved = parsed(sandbox.read(u"a.json"_s));
        QCOMPARE(saved[u"Dataset1"].toObject()[u"Title"].toString(), u"one"_s);

        trigger(window, "actionDelete");
        trigger(window, "actionSaveSpecies");
        saved = parsed(sandbox.read(u"a.json"_s));
        QCOMPARE(saved.keys(),
                 QStringList({u"Dataset1"_s, u"Dataset2"_s, u"Species"_s, u"Type"_s}));
        QCOMPARE(saved[u"Dataset2"].toObject()[u"Title"].toString(), u"three"_s);
    }

    void subWindowsOfOtherKindsAreSkippedWithoutANumber()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        QVERIFY(window.loadSpecies(sandbox.write(u"a.json"_s, speciesFile(u"A"_s, {u"one"_s}))));
        child<QMdiArea>(window, "mdiArea")->addSubWindow(new QLabel(u"note"_s))->show();
        trigger(window, "actionNew");
        trigger(window, "actionSaveSpecies");
        QCOMPARE(parsed(sandbox.read(u"a.json"_s)).keys(),
                 QStringList({u"Dataset1"_s, u"Dataset2"_s, u"Species"_s, u"Type"_s}));
    }

    void fileWithoutSpeciesOpensWithEmptyFields()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        QVERIFY(window.loadSpecies(sandbox.write(u"a.json"_s, speciesFile(u"Water"_s))));
        const QString path =
            sandbox.write(u"b.json"_s, R"({"Type": "Species v1", "Dataset1": {"Title": "one"}})");
        QVERIFY(window.loadSpecies(path));
        QCOMPARE(cell(window, SpeciesModel::Name), QString());
        QCOMPARE(spectrumTitles(window), QStringList{u"one"_s});
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - b.json"_s);
    }

    void fileWithoutDatasetsOpensNoSpectrum()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        QVERIFY(window.loadSpecies(sandbox.write(u"a.json"_s, speciesFile(u"Water"_s))));
        QVERIFY(subWindows(window).isEmpty());
        QCOMPARE(child<QMdiArea>(window, "mdiArea")->activeSubWindow(), nullptr);
    }

    void firstSpectrumIsTheActiveOne_data()
    {
        QTest::addColumn<bool>("windowIsActive");
        QTest::newRow("window active") << true;
        QTest::newRow("another window active") << false;
    }

    void firstSpectrumIsTheActiveOne()
    {
        QFETCH(bool, windowIsActive);
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        QWidget other;
        if (!windowIsActive)
            QVERIFY(showActive(other));
        const QString path =
            sandbox.write(u"a.json"_s, speciesFile(u"A"_s, {u"one"_s, u"two"_s, u"three"_s}));
        QVERIFY(window.loadSpecies(path));
        QCOMPARE(child<QMdiArea>(window, "mdiArea")->activeSubWindow(),
                 subWindows(window).constFirst());
    }

    void spectraAreDeletedWhenTheyClose()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        QVERIFY(window.loadSpecies(sandbox.write(u"a.json"_s, speciesFile(u"A"_s, {u"one"_s}))));
        QMdiSubWindow* subWindow = subWindows(window).constFirst();
        QVERIFY(subWindow->testAttribute(Qt::WA_DeleteOnClose));
        const QSignalSpy destroyed(subWindow, &QObject::destroyed);
        subWindow->close();
        QTRY_COMPARE(destroyed.size(), 1);
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
    }

    void waitCursorShowsWhileLoading()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        QList<int> shapes;
        connect(window.findChild<SpeciesModel*>(), &SpeciesModel::dataChanged, this, [&shapes] {
            const QCursor* cursor = QApplication::overrideCursor();
            shapes.append(cursor == nullptr ? -1 : static_cast<int>(cursor->shape()));
        });
        QVERIFY(window.loadSpecies(sandbox.write(u"a.json"_s, speciesFile(u"A"_s, {u"one"_s}))));
        QVERIFY(!shapes.isEmpty());
        QCOMPARE(shapes, QList<int>(shapes.size(), static_cast<int>(Qt::WaitCursor)));
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void savedFileIsIndentedTextWithSortedKeys()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        const QString path = sandbox.write(
            u"a.json"_s,
            "{\"Type\":\"Species v1\",\"Species\":{\"Name\":\"\xce\xb2-H<sub>2</sub>O\","
            "\"Mass\":18.01,\"AIE\":\"12.6\",\"Unknown\":1},\"Dataset5\":{\"Title\":\"t\","
            "\"SpectType\":1,\"CreatedDate\":\"2024-05-06\",\"E\":[1.25],\"I\":[2]}}");
        QVERIFY(window.loadSpecies(path));
        trigger(window, "actionSaveSpecies");
        QCOMPARE(sandbox.read(u"a.json"_s), QByteArray(R"({
    "Dataset1": {
        "CreatedDate": "2024-05-06",
        "DOI": "",
        "E": [
            1.25
        ],
        "FacilityDate": "",
        "FurtherComments": "",
        "FurtherRefs": "",
        "I": [
            2
        ],
        "LineSpectrum": false,
        "Normalization": "",
        "Resolution": "",
        "Source": "",
        "SpectType": 1,
        "T": "",
        "Title": "t",
        "Uploader": ""
    },
    "Species": {
        "AIE": "12.6",
        "AIE_Comment": "",
        "Aliases": "",
        "CAS": "",
        "Formula": "",
        "InChI": "",
        "Mass": 18.01,
        "Name": "β-H<sub>2</sub>O",
        "PubChem": "",
        "VIE": "",
        "VIE_Comment": ""
    },
    "Type": "Species v1"
}
)"));
    }

    void savingWithoutSpectraWritesOnlySpeciesAndType()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        DialogScript dialogs;
        dialogs.expectFileDialog(u"Save Species JSON File"_s, sandbox.path(u"a.json"_s));
        trigger(window, "actionSaveSpecies");
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
        QCOMPARE(parsed(sandbox.read(u"a.json"_s)).keys(), QStringList({u"Species"_s, u"Type"_s}));
    }

    void writeErrorAfterOpeningIsNotReported()
    {
        if (!QFile::exists(u"/dev/full"_s))
            QSKIP("no device that is always full");
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        window.createNewSpectrumWindow();
        DialogScript dialogs;
        dialogs.expectFileDialog(u"Save Species JSON File"_s, u"/dev/full"_s);
        dialogs.expect([](QWidget& overwriteQuestion) {
            auto& box = static_cast<QMessageBox&>(overwriteQuestion);
            QTest::mouseClick(static_cast<QWidget*>(box.button(QMessageBox::Yes)), Qt::LeftButton);
        });
        trigger(window, "actionSaveSpecies");
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - full"_s);
    }
};

QTEST_MAIN(TestSpeciesFile)
#include "tst_speciesfile.moc"
