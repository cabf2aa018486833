// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/journeytest.h"
#include "tests/support/spectrumtest.h"

#include <QApplication>
#include <QComboBox>
#include <QJsonArray>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

const QByteArray pyridine = R"({
    "Type": "Species v1",
    "Species": {
        "Name": "Pyridine",
        "Aliases": "Azine\nAzabenzene",
        "Mass": 79.0422,
        "Formula": "C<sub>5</sub>H<sub>5</sub>N",
        "InChI": "InChI=1S/C5H5N/c1-2-4-6-5-3-1/h1-5H",
        "CAS": "110-86-1",
        "PubChem": "1049",
        "AIE": "9.2",
        "VIE": "9.6",
        "AIE_Comment": "10.1000/old",
        "VIE_Comment": "estimate"
    },
    "Dataset1": {
        "Title": "Pyridine ms-TPES",
        "Uploader": "A. Person",
        "SpectType": 0,
        "CreatedDate": "2023-01-02",
        "Source": "Synchrotron",
        "Resolution": "15",
        "Normalization": "photodiode",
        "T": "300",
        "E": [9.2, 9.3, 9.4],
        "I": [0, 4, 2]
    },
    "Dataset2": {
        "Title": "Simulation",
        "SpectType": 4,
        "CreatedDate": "2023-01-03",
        "LevelOfTheory": "B3LYP",
        "ConvolutionFWHM": "25",
        "AIE": "9.26",
        "LineSpectrum": true,
        "E": [9.26, 9.4],
        "I": [1, 0.5]
    }
})";

const QByteArray furan = R"({
    "Type": "Species v1",
    "Species": {"Name": "Furan", "Mass": 68.0262}
})";

const QList<QPointF> thinnedPoints{{9.201, 250}, {9.202, 500}, {9.203, 750}};

} // namespace

/// An entry is opened, read and corrected, its spectrum edited and taken to another entry; both are
/// saved and found again as they were left.
class TestJourneyRevision : public JourneyTest
{
    Q_OBJECT

private Q_SLOTS:
    void entriesAreFoundAsTheyWereLeft()
    {
        pyridineFile = sandbox->write(u"pyridine.json"_s, pyridine);
        furanFile = sandbox->write(u"furan.json"_s, furan);
        using Journey = TestJourneyRevision;
        go<Journey>({&Journey::openTheEntry, &Journey::walkThroughTheFormWithoutAChange,
                     &Journey::correctTheFields, &Journey::saveInBetween, &Journey::editThePoints,
                     &Journey::normaliseAndThin, &Journey::describeTheSpectrum,
                     &Journey::takeItToAnotherEntry, &Journey::makeItASimulationThere,
                     &Journey::saveThatUnderANewName, &Journey::findTheFirstEntry,
                     &Journey::findItsSpectra, &Journey::findTheSecondEntry,
                     &Journey::closeWithoutAQuestion});
    }

private:
    void openTheEntry()
    {
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
        open(pyridineFile);
        verifyDocument(u"pyridine.json"_s, u"Pyridine"_s, {u"Pyridine ms-TPES"_s, u"Simulation"_s});
        QCOMPARE(shown(*window, "lineEditSpecies"), u"Pyridine"_s);
        QCOMPARE(shown(*window, "textEditAliases"), u"Azine<br>Azabenzene"_s);
        QCOMPARE(shown(*window, "lineEditMass"), u"79.0422"_s);
        QCOMPARE(shown(*window, "lineEditSumFormula"), u"C<sub>5</sub>H<sub>5</sub>N"_s);
        QCOMPARE(shown(*window, "lineEditCAS"), u"110-86-1"_s);
        QCOMPARE(shown(*window, "lineEditAIE"), u"9.2"_s);
        QCOMPARE(shown(*window, "lineEditVIEComment"), u"estimate"_s);
        QCOMPARE(tabs(), QStringList({u"Pyridine ms-TPES"_s, u"Simulation"_s}));
        QCOMPARE(child<QMdiArea>(*window, "mdiArea")->activeSubWindow()->windowTitle(),
                 u"Pyridine ms-TPES"_s);
    }

    void walkThroughTheFormWithoutAChange()
    {
        child<QWidget>(*window, "lineEditSpecies")->setFocus();
        for (int i = 0; i < 12; ++i)
            press(Qt::Key_Tab);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - pyridine.json"_s);
    }

    void correctTheFields()
    {
        fill(*window, "lineEditAIE", u"9.26"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - pyridine.json *"_s);
        typeInto(*child<QWidget>(*window, "lineEditAIEComment"), u"X+ 2A1 state"_s);
        selectCharacter(5);
        press(QKeySequence(u"Ctrl+B"_s));
        selectCharacter(3);
        press(QKeySequence(u"Ctrl+B"_s));
        press(QKeySequence(u"Ctrl+P"_s));
        press(Qt::Key_Tab);
        fill(*window, "textEditAliases", u"Azine\rPy"_s);
        fill(*window, "lineEditMass", u"79.04\r"_s);
        QCOMPARE(cell(*window, SpeciesModel::Aie), u"9.26"_s);
        QCOMPARE(cell(*window, SpeciesModel::AieComment), u"X+ <sup>2</sup>A<sub>1</sub> state"_s);
        QCOMPARE(cell(*window, SpeciesModel::Aliases), u"Azine<br>Py"_s);
    }

    void saveInBetween()
    {
        press(QKeySequence(u"Ctrl+S"_s));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - pyridine.json"_s);
    }

    void editThePoints()
    {
        auto* points = pointEditor(firstSpectrum());
        QCOMPARE(points->toPlainText(), u"9.2; 0\n9.3; 4\n9.4; 2"_s);
        QSignalSpy redrawn(firstSpectrum().model(), &SpectrumModel::spectrumDataChanged);
        typeInto(*points, u"9.2 0\r9.2,04 5\r# energy / eV"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - pyridine.json *"_s);
        QCOMPARE(child<QLabel>(firstSpectrum(), "label_14")->text(),
                 u"Spectrum, I(hv / eV) (3 lines)"_s);
        QVERIFY(redrawn.wait(patience));
        typeInto(*points, u"9.2 0\r9.204 5"_s);
        // The chart follows once the typing has paused.
        QVERIFY(redrawn.wait(patience));
        QCOMPARE(drawn(firstSpectrum()), QList<QPointF>({{9.2, 0}, {9.204, 5}}));
    }

    void normaliseAndThin()
    {
        const auto* points = pointEditor(firstSpectrum());
        click("buttonNormalize");
        QCOMPARE(points->toPlainText(), u"9.2000 0.00\n9.2040 1000.00"_s);
        click("buttonSparse");
        QCOMPARE(points->toPlainText(), u"9.201 250.00\n9.202 500.00\n9.203 750.00"_s);
        QCOMPARE(drawn(firstSpectrum()), thinnedPoints);
    }

    void describeTheSpectrum()
    {
        fill(firstSpectrum(), "lineEditResolution", u"8"_s);
        fill(firstSpectrum(), "lineEditTitle", u"Pyridine, thinned"_s);
        QCOMPARE(tabs(), QStringList({u"Pyridine, thinned"_s, u"Simulation"_s}));
    }

    void takeItToAnotherEntry()
    {
        press(QKeySequence(u"Ctrl+Shift+C"_s));
        open(furanFile, true);
        verifyDocument(u"furan.json"_s, u"Furan"_s, {});
        QCOMPARE(shown(*window, "lineEditAIE"), QString());
        QTest::keySequence(window.get(), QKeySequence(u"Ctrl+Shift+V"_s));
        verifyDocument(u"furan.json *"_s, u"Furan"_s, {u"Pyridine, thinned"_s});
        QCOMPARE(shown(firstSpectrum(), "lineEditResolution"), u"8"_s);
        QCOMPARE(drawn(firstSpectrum()), thinnedPoints);
    }

    void makeItASimulationThere()
    {
        child<QComboBox>(firstSpectrum(), "comboBoxType")->setCurrentIndex(4);
        QCOMPARE(child<QLabel>(firstSpectrum(), "label_8")->text(), u"Level(s) of theory"_s);
        fill(firstSpectrum(), "lineEditSource", u"CCSD"_s);
    }

    void saveThatUnderANewName()
    {
        dialogs->expectFileDialog(u"Save Species JSON File"_s, sandbox->path(u"furan2.json"_s));
        trigger(*window, "actionSaveSpeciesAs");
        verifyDocument(u"furan2.json"_s, u"Furan"_s, {u"Pyridine, thinned"_s});
        QCOMPARE(sandbox->read(u"furan.json"_s), furan);
        activate();
    }

    void findTheFirstEntry()
    {
        open(pyridineFile);
        verifyDocument(u"pyridine.json"_s, u"Pyridine"_s,
                       {u"Pyridine, thinned"_s, u"Simulation"_s});
        QCOMPARE(shown(*window, "textEditAliases"), u"Azine<br>Py"_s);
        QCOMPARE(shown(*window, "lineEditMass"), u"79.04"_s);
        QCOMPARE(shown(*window, "lineEditSumFormula"), u"C<sub>5</sub>H<sub>5</sub>N"_s);
        QCOMPARE(shown(*window, "lineEditInChI"), u"InChI=1S/C5H5N/c1-2-4-6-5-3-1/h1-5H"_s);
        QCOMPARE(shown(*window, "lineEditCID"), u"1049"_s);
        QCOMPARE(shown(*window, "lineEditAIE"), u"9.26"_s);
        QCOMPARE(shown(*window, "lineEditAIEComment"), u"X+ <sup>2</sup>A<sub>1</sub> state"_s);
        QCOMPARE(shown(*window, "lineEditVIE"), u"9.6"_s);
    }

    void findItsSpectra()
    {
        QCOMPARE(spectra(*window).at(0)->model()->toJson(),
                 QJsonObject({{u"Title"_s, u"Pyridine, thinned"_s},
                              {u"Uploader"_s, u"A. Person"_s},
                              {u"DOI"_s, QString()},
                              {u"SpectType"_s, 0},
                              {u"FurtherRefs"_s, QString()},
                              {u"T"_s, u"300"_s},
                              {u"FurtherComments"_s, QString()},
                              {u"CreatedDate"_s, u"2023-01-02"_s},
                              {u"FacilityDate"_s, QString()},
                              {u"LineSpectrum"_s, false},
                              {u"Source"_s, u"Synchrotron"_s},
                              {u"Resolution"_s, u"8"_s},
                              {u"Normalization"_s, u"photodiode"_s},
                              {u"E"_s, QJsonArray{9.201, 9.202, 9.203}},
                              {u"I"_s, QJsonArray{250, 500, 750}}}));
        QCOMPARE(spectra(*window).at(1)->model()->toJson(),
                 QJsonObject({{u"Title"_s, u"Simulation"_s},
                              {u"Uploader"_s, QString()},
                              {u"DOI"_s, QString()},
                              {u"SpectType"_s, 4},
                              {u"FurtherRefs"_s, QString()},
                              {u"T"_s, QString()},
                              {u"FurtherComments"_s, QString()},
                              {u"CreatedDate"_s, u"2023-01-03"_s},
                              {u"FacilityDate"_s, QString()},
                              {u"LineSpectrum"_s, true},
                              {u"LevelOfTheory"_s, u"B3LYP"_s},
                              {u"ConvolutionFWHM"_s, u"25"_s},
                              {u"AIE"_s, u"9.26"_s},
                              {u"E"_s, QJsonArray{9.26, 9.4}},
                              {u"I"_s, QJsonArray{1, 0.5}}}));
    }

    void findTheSecondEntry()
    {
        open(sandbox->path(u"furan2.json"_s));
        verifyDocument(u"furan2.json"_s, u"Furan"_s, {u"Pyridine, thinned"_s});
        QCOMPARE(shown(*window, "lineEditMass"), u"68.0262"_s);
        QCOMPARE(child<QComboBox>(firstSpectrum(), "comboBoxType")->currentText(),
                 u"FC simulation"_s);
        QCOMPARE(shown(firstSpectrum(), "lineEditSource"), u"CCSD"_s);
        QCOMPARE(shown(firstSpectrum(), "lineEditResolution"), QString());
    }

    void closeWithoutAQuestion()
    {
        QVERIFY(window->close());
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
    }

    /// The captions of the tabs.
    [[nodiscard]] QStringList tabs() const
    {
        QStringList captions;
        const auto all = subWindows(*window);
        for (const QMdiSubWindow* subWindow : all)
            captions.append(subWindow->windowTitle());
        return captions;
    }

    void click(const char* button)
    {
        QTest::mouseClick(child<QPushButton>(firstSpectrum(), button), Qt::LeftButton);
    }

    QString pyridineFile;
    QString furanFile;
};

QTEST_MAIN(TestJourneyRevision)
#include "tst_journeyrevision.moc"
