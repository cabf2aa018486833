// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QApplication>
#include <QFile>
#include <QJsonDocument>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

/// What the window shows of a species file, and what it writes when that is saved.
class TestOpenAndSave : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void twelveDatasetsOpenInTheOrderOfTheirKeysAndAreSavedInIt()
    {
        const QStringList titles{u"1"_s, u"2"_s, u"3"_s, u"4"_s,  u"5"_s,  u"6"_s,
                                 u"7"_s, u"8"_s, u"9"_s, u"10"_s, u"11"_s, u"12"_s};
        load(speciesFile(u"A"_s, titles));
        QCOMPARE(spectrumTitles(*window),
                 QStringList({u"1"_s, u"10"_s, u"11"_s, u"12"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s,
                              u"6"_s, u"7"_s, u"8"_s, u"9"_s}));

        const QJsonObject saved = save();
        QCOMPARE(saved.size(), 14);
        QCOMPARE(saved[u"Dataset2"].toObject()[u"Title"].toString(), u"10"_s);
        QCOMPARE(saved[u"Dataset5"].toObject()[u"Title"].toString(), u"2"_s);
        QCOMPARE(saved[u"Dataset12"].toObject()[u"Title"].toString(), u"9"_s);
    }

    void gapsAndLeadingZerosAreClosedBySaving()
    {
        load(R"({"Type": "Species v1",
            "Species": {"Name": "A"}, "Dataset7": {"Title": "seven"},
            "Dataset003": {"Title": "three"}, "dataset1": {"Title": "lower"},
            "Dataset": {"Title": "none"}, "Dataset1b": {"Title": "letter"}, "Other": 1})");
        QCOMPARE(spectrumTitles(*window), QStringList({u"three"_s, u"seven"_s}));

        QCOMPARE(save().keys(),
                 QStringList({u"Dataset1"_s, u"Dataset2"_s, u"Species"_s, u"Type"_s}));
    }

    void savingNumbersByCreationNotByTabs()
    {
        load(speciesFile(u"A"_s, {u"one"_s, u"two"_s, u"three"_s}));
        child<QMdiArea>(*window, "mdiArea")->setActiveSubWindow(subWindows(*window).at(1));
        QJsonObject saved = save();
        QCOMPARE(saved[u"Dataset1"].toObject()[u"Title"].toString(), u"one"_s);

        trigger(*window, "actionDelete");
        saved = save();
        QCOMPARE(saved.keys(),
                 QStringList({u"Dataset1"_s, u"Dataset2"_s, u"Species"_s, u"Type"_s}));
        QCOMPARE(saved[u"Dataset2"].toObject()[u"Title"].toString(), u"three"_s);
    }

    void subWindowsOfOtherKindsAreSkippedWithoutANumber()
    {
        load(speciesFile(u"A"_s, {u"one"_s}));
        child<QMdiArea>(*window, "mdiArea")->addSubWindow(new QLabel(u"note"_s))->show();
        trigger(*window, "actionNew");
        QCOMPARE(save().keys(),
                 QStringList({u"Dataset1"_s, u"Dataset2"_s, u"Species"_s, u"Type"_s}));
    }

    void fileWithoutSpeciesOpensWithEmptyFields()
    {
        load(speciesFile(u"Water"_s));
        const QString path =
            sandbox->write(u"b.json"_s, R"({"Type": "Species v1", "Dataset1": {"Title": "one"}})");
        QVERIFY(window->openEntry(path));
        QCOMPARE(cell(*window, SpeciesModel::Name), QString());
        QCOMPARE(spectrumTitles(*window), QStringList{u"one"_s});
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - b.json"_s);
    }

    void fileWithoutDatasetsOpensNoSpectrum()
    {
        load(speciesFile(u"Water"_s));
        QVERIFY(subWindows(*window).isEmpty());
        QCOMPARE(child<QMdiArea>(*window, "mdiArea")->activeSubWindow(), nullptr);
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
        QWidget other;
        if (!windowIsActive)
            QVERIFY(showActive(other));
        load(speciesFile(u"A"_s, {u"one"_s, u"two"_s, u"three"_s}));
        QCOMPARE(child<QMdiArea>(*window, "mdiArea")->activeSubWindow(),
                 subWindows(*window).constFirst());
    }

    void spectraAreDeletedWhenTheyClose()
    {
        load(speciesFile(u"A"_s, {u"one"_s}));
        QMdiSubWindow* subWindow = subWindows(*window).constFirst();
        QVERIFY(subWindow->testAttribute(Qt::WA_DeleteOnClose));
        const QSignalSpy destroyed(subWindow, &QObject::destroyed);
        subWindow->close();
        QTRY_COMPARE(destroyed.size(), 1);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
    }

    void waitCursorShowsWhileLoading()
    {
        QList<int> shapes;
        connect(window->findChild<SpeciesModel*>(), &SpeciesModel::dataChanged, this, [&shapes] {
            const QCursor* cursor = QApplication::overrideCursor();
            shapes.append(cursor == nullptr ? -1 : static_cast<int>(cursor->shape()));
        });
        load(speciesFile(u"A"_s, {u"one"_s}));
        QVERIFY(!shapes.isEmpty());
        QCOMPARE(shapes, QList<int>(shapes.size(), static_cast<int>(Qt::WaitCursor)));
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void savedFileIsIndentedTextWithSortedKeys()
    {
        load("{\"Type\":\"Species v1\",\"Species\":{\"Name\":\"\xce\xb2-H<sub>2</sub>O\","
             "\"Mass\":18.01,\"AIE\":\"12.6\",\"Unknown\":1},\"Dataset5\":{\"Title\":\"t\","
             "\"SpectType\":1,\"CreatedDate\":\"2024-05-06\",\"E\":[1.25],\"I\":[2]}}");
        trigger(*window, "actionSaveSpecies");
        QCOMPARE(sandbox->read(u"a.json"_s), QByteArray(R"({
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
        dialogs->expectFileDialog(u"Save Species JSON File"_s, sandbox->path(u"a.json"_s));
        QCOMPARE(save().keys(), QStringList({u"Species"_s, u"Type"_s}));
    }

    void writeErrorAfterOpeningIsNotReported()
    {
        if (!QFile::exists(u"/dev/full"_s))
            QSKIP("no device that is always full");
        window->createNewSpectrumWindow();
        dialogs->expectFileDialog(u"Save Species JSON File"_s, u"/dev/full"_s);
        dialogs->expect([](QWidget& overwriteQuestion) {
            auto& box = static_cast<QMessageBox&>(overwriteQuestion);
            QTest::mouseClick(static_cast<QWidget*>(box.button(QMessageBox::Yes)), Qt::LeftButton);
        });
        trigger(*window, "actionSaveSpecies");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - full"_s);
    }

private:
    void load(const QByteArray& file)
    {
        QVERIFY(window->openEntry(sandbox->write(u"a.json"_s, file)));
    }

    [[nodiscard]] QJsonObject save() const
    {
        trigger(*window, "actionSaveSpecies");
        return QJsonDocument::fromJson(sandbox->read(u"a.json"_s)).object();
    }
};

QTEST_MAIN(TestOpenAndSave)
#include "tst_openandsave.moc"
