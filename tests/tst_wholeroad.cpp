// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/dialogscript.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"
#include "widgets/singlelinetextedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <optional>

using namespace TestSupport;
using namespace Qt::StringLiterals;

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

} // namespace

/// A scientist's day: an entry is opened, read, corrected, its spectrum edited, normalised, thinned
/// and copied to another entry; both are saved and found again as they were left.
class TestWholeRoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEntryIsEditedSavedAndFoundAgain()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        DialogScript dialogs;
        const QString pyridineFile = sandbox.write(u"pyridine.json"_s, pyridine);
        const QString furanFile = sandbox.write(u"furan.json"_s, furan);

        // Open the entry and read it.
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit"_s);
        open(window, dialogs, pyridineFile);
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - pyridine.json"_s);
        QCOMPARE(shown(window, "lineEditSpecies"), u"Pyridine"_s);
        QCOMPARE(shown(window, "textEditAliases"), u"Azine<br>Azabenzene"_s);
        QCOMPARE(shown(window, "lineEditMass"), u"79.0422"_s);
        QCOMPARE(shown(window, "lineEditSumFormula"), u"C<sub>5</sub>H<sub>5</sub>N"_s);
        QCOMPARE(shown(window, "lineEditCAS"), u"110-86-1"_s);
        QCOMPARE(shown(window, "lineEditAIE"), u"9.2"_s);
        QCOMPARE(shown(window, "lineEditVIEComment"), u"estimate"_s);
        QCOMPARE(tabs(window), QStringList({u"Pyridine ms-TPES"_s, u"Simulation"_s}));
        QCOMPARE(activeTitle(window), u"Pyridine ms-TPES"_s);

        // Walk through the form without changing anything.
        field(window, "lineEditSpecies")->setFocus();
        for (int i = 0; i < 12; ++i)
            leaveField();
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - pyridine.json"_s);

        // Correct some fields.
        typeInto(*field(window, "lineEditAIE"), u"9.26"_s);
        leaveField();
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - pyridine.json *"_s);
        typeInto(*field(window, "lineEditAIEComment"), u"X+ 2A1 state"_s);
        selectBackwards(window, "lineEditAIEComment", 6, 1);
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(u"Ctrl+B"_s));
        selectBackwards(window, "lineEditAIEComment", 8, 1);
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(u"Ctrl+B"_s));
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(u"Ctrl+P"_s));
        leaveField();
        typeInto(*field(window, "textEditAliases"), u"Azine"_s);
        QTest::keyClick(field(window, "textEditAliases"), Qt::Key_Return);
        QTest::keyClicks(field(window, "textEditAliases"), u"Py"_s);
        leaveField();
        typeInto(*field(window, "lineEditMass"), u"79.04"_s);
        QTest::keyClick(field(window, "lineEditMass"), Qt::Key_Return);
        leaveField();
        QCOMPARE(cell(window, SpeciesModel::Aie), u"9.26"_s);
        QCOMPARE(cell(window, SpeciesModel::AieComment), u"X+ <sup>2</sup>A<sub>1</sub> state"_s);
        QCOMPARE(cell(window, SpeciesModel::Aliases), u"Azine<br>Py"_s);

        // Save in between.
        QTest::keySequence(&window, QKeySequence(u"Ctrl+S"_s));
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - pyridine.json"_s);

        // Edit the points; the chart follows once the typing has paused.
        SpectrumWindow* spectrum = spectra(window).constFirst();
        auto* points = child<QPlainTextEdit>(*spectrum, "textEditSpect");
        QCOMPARE(points->toPlainText(), u"9.2; 0\n9.3; 4\n9.4; 2"_s);
        QSignalSpy redrawn(spectrum->model(), &SpectrumModel::spectrumDataChanged);
        typeInto(*points, u"9.2 0"_s);
        for (const QString& line : {u"9.2,04 5"_s, u"# energy / eV"_s}) {
            QTest::keyClick(points, Qt::Key_Return);
            QTest::keyClicks(points, line);
        }
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - pyridine.json *"_s);
        QCOMPARE(child<QLabel>(*spectrum, "label_14")->text(), u"Spectrum, I(hv / eV) (3 lines)"_s);
        QVERIFY(redrawn.wait(20'000));
        typeInto(*points, u"9.2 0"_s);
        QTest::keyClick(points, Qt::Key_Return);
        QTest::keyClicks(points, u"9.204 5"_s);
        QVERIFY(redrawn.wait(20'000));
        QCOMPARE(drawn(*spectrum), QList<QPointF>({{9.2, 0}, {9.204, 5}}));
        QCOMPARE(energyRange(*spectrum), QPointF(9.2, 9.204));

        // Normalise and thin.
        QTest::mouseClick(child<QPushButton>(*spectrum, "buttonNormalize"), Qt::LeftButton);
        QCOMPARE(points->toPlainText(), u"9.2000 0.00\n9.2040 1000.00"_s);
        QTest::mouseClick(child<QPushButton>(*spectrum, "buttonSparse"), Qt::LeftButton);
        QCOMPARE(points->toPlainText(), u"9.201 250.00\n9.202 500.00\n9.203 750.00"_s);
        QCOMPARE(drawn(*spectrum), QList<QPointF>({{9.201, 250}, {9.202, 500}, {9.203, 750}}));

        // Describe the spectrum.
        typeInto(*field(*spectrum, "lineEditResolution"), u"8"_s);
        typeInto(*field(*spectrum, "lineEditTitle"), u"Pyridine, thinned"_s);
        leaveField();
        QCOMPARE(tabs(window), QStringList({u"Pyridine, thinned"_s, u"Simulation"_s}));

        // Take it to another entry; on the way the entry is saved after all.
        QTest::keySequence(&window, QKeySequence(u"Ctrl+Shift+C"_s));
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
        open(window, dialogs, furanFile, QMessageBox::Save);
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - furan.json"_s);
        QCOMPARE(shown(window, "lineEditSpecies"), u"Furan"_s);
        QCOMPARE(shown(window, "lineEditAIE"), QString());
        QVERIFY(subWindows(window).isEmpty());
        QTest::keySequence(&window, QKeySequence(u"Ctrl+Shift+V"_s));
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - furan.json *"_s);
        QCOMPARE(tabs(window), QStringList{u"Pyridine, thinned"_s});
        spectrum = spectra(window).constFirst();
        QCOMPARE(shown(*spectrum, "lineEditResolution"), u"8"_s);
        QCOMPARE(drawn(*spectrum), QList<QPointF>({{9.201, 250}, {9.202, 500}, {9.203, 750}}));

        // There it is a simulation.
        child<QComboBox>(*spectrum, "comboBoxType")->setCurrentIndex(4);
        QCOMPARE(child<QLabel>(*spectrum, "label_8")->text(), u"Level(s) of theory"_s);
        typeInto(*field(*spectrum, "lineEditSource"), u"CCSD"_s);
        leaveField();
        dialogs.expectFileDialog(u"Save Species JSON File"_s, sandbox.path(u"furan2.json"_s));
        trigger(window, "actionSaveSpeciesAs");
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - furan2.json"_s);
        QCOMPARE(sandbox.read(u"furan.json"_s), furan);

        // The first entry is found as it was left.
        QVERIFY(showActive(window));
        open(window, dialogs, pyridineFile);
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - pyridine.json"_s);
        QCOMPARE(shown(window, "textEditAliases"), u"Azine<br>Py"_s);
        QCOMPARE(shown(window, "lineEditMass"), u"79.04"_s);
        QCOMPARE(shown(window, "lineEditSumFormula"), u"C<sub>5</sub>H<sub>5</sub>N"_s);
        QCOMPARE(shown(window, "lineEditInChI"), u"InChI=1S/C5H5N/c1-2-4-6-5-3-1/h1-5H"_s);
        QCOMPARE(shown(window, "lineEditCID"), u"1049"_s);
        QCOMPARE(shown(window, "lineEditAIE"), u"9.26"_s);
        QCOMPARE(shown(window, "lineEditAIEComment"), u"X+ <sup>2</sup>A<sub>1</sub> state"_s);
        QCOMPARE(shown(window, "lineEditVIE"), u"9.6"_s);
        QCOMPARE(tabs(window), QStringList({u"Pyridine, thinned"_s, u"Simulation"_s}));
        QCOMPARE(spectra(window).at(0)->model()->toJson(),
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
        QCOMPARE(spectra(window).at(1)->model()->toJson(),
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

        // So is the second.
        open(window, dialogs, sandbox.path(u"furan2.json"_s));
        QCOMPARE(shown(window, "lineEditSpecies"), u"Furan"_s);
        QCOMPARE(shown(window, "lineEditMass"), u"68.0262"_s);
        spectrum = spectra(window).constFirst();
        QCOMPARE(child<QComboBox>(*spectrum, "comboBoxType")->currentText(), u"FC simulation"_s);
        QCOMPARE(shown(*spectrum, "lineEditSource"), u"CCSD"_s);
        QCOMPARE(shown(*spectrum, "lineEditResolution"), QString());

        // The day ends without a question.
        QVERIFY(window.close());
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
    }

    void anEntryIsMadeFromNothing()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(showActive(window));
        DialogScript dialogs;

        typeInto(*field(window, "lineEditSpecies"), u"Water"_s);
        leaveField();
        typeInto(*field(window, "lineEditSumFormula"), u"H2O"_s);
        selectBackwards(window, "lineEditSumFormula", 1, 1);
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(u"Ctrl+B"_s));
        leaveField();
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - (untitled) *"_s);

        QTest::keySequence(&window, QKeySequence(u"Ctrl+Shift+N"_s));
        SpectrumWindow* spectrum = spectra(window).constFirst();
        typeInto(*field(*spectrum, "lineEditTitle"), u"Sticks"_s);
        leaveField();
        auto* points = child<QPlainTextEdit>(*spectrum, "textEditSpect");
        QSignalSpy redrawn(spectrum->model(), &SpectrumModel::spectrumDataChanged);
        typeInto(*points, u"12,6 1"_s);
        QTest::keyClick(points, Qt::Key_Return);
        QTest::keyClicks(points, u"13,1 2"_s);
        QTest::mouseClick(child<QPushButton>(*spectrum, "buttonCommaToDot"), Qt::LeftButton);
        QCOMPARE(points->toPlainText(), u"12.6 1\n13.1 2"_s);
        QVERIFY(redrawn.wait(20'000));
        child<QCheckBox>(*spectrum, "checkBoxLineSpectrum")->click();
        QCOMPARE(drawn(*spectrum), QList<QPointF>({{12.6, 1}, {12.6, 0}, {13.1, 2}}));

        dialogs.expectFileDialog(u"Save Species JSON File"_s, sandbox.path(u"water.json"_s));
        QTest::keySequence(&window, QKeySequence(u"Ctrl+S"_s));
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - water.json"_s);

        const QJsonObject file = QJsonDocument::fromJson(sandbox.read(u"water.json"_s)).object();
        QCOMPARE(file[u"Species"].toObject()[u"Formula"], QJsonValue(u"H<sub>2</sub>O"_s));
        const QJsonObject dataset = file[u"Dataset1"].toObject();
        QCOMPARE(dataset[u"Title"], QJsonValue(u"Sticks"_s));
        QCOMPARE(dataset[u"LineSpectrum"], QJsonValue(true));
        QCOMPARE(dataset[u"E"], QJsonValue(QJsonArray{12.6, 13.1}));
        QVERIFY(QDate::fromString(dataset[u"CreatedDate"].toString(), Qt::ISODate).isValid());
    }

private:
    static void open(MainWindow& window, DialogScript& dialogs, const QString& path,
                     QMessageBox::StandardButton saveAnswer = QMessageBox::NoButton)
    {
        dialogs.expectFileDialog(u"Open Species JSON File"_s, path);
        if (saveAnswer != QMessageBox::NoButton)
            dialogs.expectSaveQuestion(saveAnswer);
        QTest::keySequence(&window, QKeySequence(u"Ctrl+O"_s));
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
        QVERIFY(showActive(window));
    }

    static CleanTextEdit* field(const QWidget& parent, const char* name)
    {
        return child<CleanTextEdit>(parent, name);
    }

    static QString shown(const QWidget& parent, const char* name)
    {
        return field(parent, name)->cleanedHtml();
    }

    static void leaveField() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); }

    /// Selects @p count characters to the left of the one @p back places before the end.
    static void selectBackwards(const QWidget& parent, const char* name, int back, int count)
    {
        auto* edit = field(parent, name);
        QTest::keyClick(edit, Qt::Key_End);
        for (int i = 0; i < back; ++i)
            QTest::keyClick(edit, Qt::Key_Left);
        for (int i = 0; i < count; ++i)
            QTest::keyClick(edit, Qt::Key_Left, Qt::ShiftModifier);
    }

    static QStringList tabs(const QWidget& window)
    {
        QStringList captions;
        const auto all = subWindows(window);
        for (const QMdiSubWindow* subWindow : all)
            captions.append(subWindow->windowTitle());
        return captions;
    }

    static QString activeTitle(const QWidget& window)
    {
        return child<QMdiArea>(window, "mdiArea")->activeSubWindow()->windowTitle();
    }

    static QChart* chart(const SpectrumWindow& spectrum)
    {
        return child<QChartView>(spectrum, "chartSpectrum")->chart();
    }

    static QList<QPointF> drawn(const SpectrumWindow& spectrum)
    {
        return qobject_cast<QLineSeries*>(chart(spectrum)->series().constFirst())->points();
    }

    static QPointF energyRange(const SpectrumWindow& spectrum)
    {
        const auto* axis =
            qobject_cast<QValueAxis*>(chart(spectrum)->axes(Qt::Horizontal).constFirst());
        return {axis->min(), axis->max()};
    }
};

QTEST_MAIN(TestWholeRoad)
#include "tst_wholeroad.moc"
