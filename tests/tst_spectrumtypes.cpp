// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/spectrumtest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

constexpr int simulation = 4;

void setCell(const SpectrumWindow& window, int column, const QVariant& value)
{
    window.model()->setData(window.model()->index(0, column), value);
}

QStringList cells(const SpectrumWindow& window)
{
    QStringList texts;
    for (int column = 0; column < 16; ++column)
        texts.append(cell(window, column).toString());
    return texts;
}

QString text(const SpectrumWindow& window, const char* label)
{
    return child<QLabel>(window, label)->text();
}

QString html(const SpectrumWindow& window, const char* field)
{
    return child<QTextEdit>(window, field)->property("cleanedHtml").toString();
}

/// Steps to the type with the arrow keys.
void chooseType(const SpectrumWindow& window, int type)
{
    auto* types = child<QComboBox>(window, "comboBoxType");
    types->setFocus();
    while (types->currentIndex() < type)
        QTest::keyClick(types, Qt::Key_Down);
    while (types->currentIndex() > type)
        QTest::keyClick(types, Qt::Key_Up);
}

void typeAndLeave(const SpectrumWindow& window, const char* field, const QString& typed)
{
    auto* widget = child<QWidget>(window, field);
    typeInto(*widget, typed);
    QTest::keyClick(widget, Qt::Key_Tab);
}

struct Binding
{
    const char* field;
    int simulationColumn;
    int experimentColumn;
};

constexpr Binding richTextBindings[] = {
    {"lineEditTitle", 0, 0},     {"lineEditUploader", 1, 1}, {"lineEditSpectDOI", 2, 2},
    {"textEditCitations", 4, 4}, {"textEditComments", 6, 6}, {"lineEditFacilityDate", 8, 8},
    {"lineEditSourceT", 5, 5},   {"lineEditSource", 13, 10}, {"lineEditResolution", 14, 11},
    {"lineEditFlux", 15, 12},
};

void addBindingRows()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("column");
    for (const int type : {0, 1, 2, 3, simulation, 5}) {
        for (const Binding& binding : richTextBindings) {
            QTest::addRow("type %d, %s", type, binding.field)
                << type << QByteArray(binding.field)
                << (type == simulation ? binding.simulationColumn : binding.experimentColumn);
        }
    }
}

} // namespace

/// What the spectrum type decides: captions, and which columns the fields edit.
class TestSpectrumTypes : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void captionsFollowTheType_data()
    {
        QTest::addColumn<QString>("ofSimulation");
        QTest::addColumn<QString>("ofExperiment");
        QTest::newRow("label_8") << u"Level(s) of theory"_s << u"Source"_s;
        QTest::newRow("label_9") << u"Vib. T / K"_s << u"Source T / K"_s;
        QTest::newRow("label_10") << u"Conv. FWHM / meV"_s << u"Resolution / meV"_s;
        QTest::newRow("label_11") << u"0-0 transition / eV"_s << u"Flux normalization"_s;
        QTest::newRow("labelComments")
            << u"Comments: programs used, approximations, convergence, simulation issues etc."_s
            << u"Comments: mass resolution, extraction field, details of spectral treatment, sample / isomeric purity etc."_s;
        QTest::newRow("labelCitations")
            << u"Further citations (program(s), theory etc.)"_s
            << u"Further citations (expt., source, light source etc.)"_s;
        QTest::newRow("label_13") << u"Date & facility"_s << u"Date & facility"_s;
        QTest::newRow("label_2") << u"Title"_s << u"Title"_s;
        QTest::newRow("label_5") << u"Spect. DOI"_s << u"Spect. DOI"_s;
    }
    void captionsFollowTheType()
    {
        QFETCH(QString, ofSimulation);
        QFETCH(QString, ofExperiment);
        const char* label = QTest::currentDataTag();
        const SpectrumWindow window;
        QCOMPARE(text(window, label), ofExperiment);
        for (const int type : {simulation, 5, simulation, 3, 2, 1, 0}) {
            chooseType(window, type);
            QCOMPARE(text(window, label), type == simulation ? ofSimulation : ofExperiment);
        }
    }

    void captionsFollowTheTypeOfADataset_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("caption");
        QTest::newRow("ms-TPES") << 0 << u"Source"_s;
        QTest::newRow("ms-SPES") << 1 << u"Source"_s;
        QTest::newRow("TPES") << 2 << u"Source"_s;
        QTest::newRow("PES") << 3 << u"Source"_s;
        QTest::newRow("FC simulation") << 4 << u"Level(s) of theory"_s;
        QTest::newRow("PIS") << 5 << u"Source"_s;
    }
    void captionsFollowTheTypeOfADataset()
    {
        QFETCH(int, type);
        const SpectrumWindow window({{u"SpectType"_s, type}});
        QCOMPARE(child<QComboBox>(window, "comboBoxType")->currentIndex(), type);
        QTEST(text(window, "label_8"), "caption");
        QCOMPARE(cell(window, 3), QVariant(type));
    }

    void unknownTypeOfADatasetCountsAsExperiment()
    {
        const SpectrumWindow window({{u"SpectType"_s, 99}, {u"Source"_s, u"lamp"_s}});
        QCOMPARE(text(window, "label_8"), u"Source"_s);
        QCOMPARE(html(window, "lineEditSource"), u"lamp"_s);
        QCOMPARE(cell(window, 3), QVariant(99));
    }

    void choosingATypeStoresItAtOnce()
    {
        const SpectrumWindow window;
        for (const int type : {1, 2, 3, 4, 5, 0}) {
            chooseType(window, type);
            QCOMPARE(cell(window, 3), QVariant(type));
            QCOMPARE(child<QComboBox>(window, "comboBoxType")->currentIndex(), type);
        }
    }

    void nothingIsLockedByTheType()
    {
        const auto* window = show();
        toggle(*window);
        for (const int type : {4, 5}) {
            chooseType(*window, type);
            for (const Binding& binding : richTextBindings) {
                const auto* field = child<QTextEdit>(*window, binding.field);
                QVERIFY2(field->isEnabled() && field->isVisible() && !field->isReadOnly(),
                         binding.field);
            }
            QVERIFY(child<QCheckBox>(*window, "checkBoxLineSpectrum")->isChecked());
            QCOMPARE(cell(*window, 9), QVariant(true));
        }
    }

    void leavingAFieldStoresItsText_data() { addBindingRows(); }
    void leavingAFieldStoresItsText()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, field);
        QFETCH(int, column);
        const auto* window = show();
        chooseType(*window, type);
        QStringList expected = cells(*window);
        typeInto(*child<QWidget>(*window, field.constData()), u"typed"_s);
        QCOMPARE(cells(*window), expected);
        QTest::keyClick(child<QWidget>(*window, field.constData()), Qt::Key_Tab);
        expected[column] = u"typed"_s;
        QCOMPARE(cells(*window), expected);
    }

    void fieldShowsItsCell_data() { addBindingRows(); }
    void fieldShowsItsCell()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, field);
        QFETCH(int, column);
        const SpectrumWindow window({{u"SpectType"_s, type}});
        setCell(window, column, u"H<sub>2</sub>O<sup>+</sup>"_s);
        QCOMPARE(html(window, field.constData()), u"H<sub>2</sub>O<sup>+</sup>"_s);
        int showing = 0;
        for (const Binding& binding : richTextBindings)
            showing += html(window, binding.field).isEmpty() ? 0 : 1;
        QCOMPARE(showing, 1);
    }

    void linesOfALongTextAreStored()
    {
        const auto* window = show();
        typeAndLeave(*window, "textEditCitations", u"one\rtwo"_s);
        QCOMPARE(cell(*window, 4).toString(), u"one<br>two"_s);
    }

    void clearedFieldIsStored()
    {
        const auto* window = show({{u"Title"_s, u"old"_s}});
        auto* title = child<QWidget>(*window, "lineEditTitle");
        typeInto(*title, QString());
        QTest::keyClick(title, Qt::Key_Delete);
        QTest::keyClick(title, Qt::Key_Tab);
        QCOMPARE(cell(*window, 0), QVariant(QString()));
        QCOMPARE(window->windowTitle(), QString());
    }

    void otherWidgetsShowTheirCells()
    {
        const SpectrumWindow window;
        setCell(window, 7, u"2001-01-01"_s);
        QCOMPARE(text(window, "labelCreated"), u"2001-01-01"_s);
        setCell(window, 9, true);
        QVERIFY(child<QCheckBox>(window, "checkBoxLineSpectrum")->isChecked());
        setCell(window, 3, simulation);
        QCOMPARE(child<QComboBox>(window, "comboBoxType")->currentIndex(), simulation);
        QCOMPARE(text(window, "label_9"), u"Vib. T / K"_s);
    }

    void eachKindKeepsItsOwnThreeTexts()
    {
        const auto* window = show();
        chooseType(*window, 2);
        typeAndLeave(*window, "lineEditSource", u"lamp"_s);
        typeAndLeave(*window, "lineEditResolution", u"12"_s);
        typeAndLeave(*window, "lineEditFlux", u"diode"_s);
        typeAndLeave(*window, "lineEditSourceT", u"300"_s);

        chooseType(*window, simulation);
        QCOMPARE(html(*window, "lineEditSource"), QString());
        QCOMPARE(html(*window, "lineEditResolution"), QString());
        QCOMPARE(html(*window, "lineEditFlux"), QString());
        QCOMPARE(html(*window, "lineEditSourceT"), u"300"_s);
        typeAndLeave(*window, "lineEditSource", u"G4"_s);
        typeAndLeave(*window, "lineEditResolution", u"20"_s);
        typeAndLeave(*window, "lineEditFlux", u"9.24"_s);

        chooseType(*window, 2);
        QCOMPARE(html(*window, "lineEditSource"), u"lamp"_s);
        QCOMPARE(html(*window, "lineEditResolution"), u"12"_s);
        QCOMPARE(html(*window, "lineEditFlux"), u"diode"_s);
        QCOMPARE(html(*window, "lineEditSourceT"), u"300"_s);
        chooseType(*window, simulation);
        QCOMPARE(html(*window, "lineEditSource"), u"G4"_s);
        QCOMPARE(html(*window, "lineEditResolution"), u"20"_s);
        QCOMPARE(html(*window, "lineEditFlux"), u"9.24"_s);

        QCOMPARE(cells(*window).sliced(10),
                 (QStringList{u"lamp"_s, u"12"_s, u"diode"_s, u"G4"_s, u"20"_s, u"9.24"_s}));
    }

    void changingBetweenExperimentsShowsTheSameTexts()
    {
        const SpectrumWindow window({{u"SpectType"_s, 0}, {u"Source"_s, u"lamp"_s}});
        chooseType(window, 5);
        QCOMPARE(cell(window, 3), QVariant(5));
        QCOMPARE(html(window, "lineEditSource"), u"lamp"_s);
        QCOMPARE(text(window, "label_8"), u"Source"_s);
    }

    void changingTheTypeShowsWhatWasLoadedBehindTheForm()
    {
        const SpectrumWindow window;
        // Reading emits nothing, so the form does not know of it yet.
        window.model()->fromJson({{u"Title"_s, u"read"_s},
                                  {u"T"_s, u"300"_s},
                                  {u"Source"_s, u"lamp"_s},
                                  {u"LineSpectrum"_s, true}});
        QCOMPARE(html(window, "lineEditTitle"), QString());
        chooseType(window, 2);
        QCOMPARE(html(window, "lineEditTitle"), u"read"_s);
        QVERIFY(child<QCheckBox>(window, "checkBoxLineSpectrum")->isChecked());
        // The check box changes before the fields behind it show their cells: it must not store
        // what they still say.
        QCOMPARE(html(window, "lineEditSourceT"), u"300"_s);
        QCOMPARE(html(window, "lineEditSource"), u"lamp"_s);
        QCOMPARE(cell(window, 5).toString(), u"300"_s);
        QCOMPARE(cell(window, 10).toString(), u"lamp"_s);
    }

    void datasetIsShownWhole_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("experiment") << 1;
        QTest::newRow("simulation") << simulation;
    }
    void datasetIsShownWhole()
    {
        QFETCH(int, type);
        const QJsonObject dataset{{u"Title"_s, u"ti"_s},
                                  {u"Uploader"_s, u"up"_s},
                                  {u"DOI"_s, u"do"_s},
                                  {u"SpectType"_s, type},
                                  {u"FurtherRefs"_s, u"re"_s},
                                  {u"T"_s, u"te"_s},
                                  {u"FurtherComments"_s, u"co"_s},
                                  {u"CreatedDate"_s, u"cr"_s},
                                  {u"FacilityDate"_s, u"fa"_s},
                                  {u"LineSpectrum"_s, true},
                                  {u"Source"_s, u"so"_s},
                                  {u"Resolution"_s, u"rs"_s},
                                  {u"Normalization"_s, u"no"_s},
                                  {u"LevelOfTheory"_s, u"le"_s},
                                  {u"ConvolutionFWHM"_s, u"fw"_s},
                                  {u"AIE"_s, u"ai"_s}};
        const SpectrumWindow window(dataset);
        const QList<std::pair<const char*, QString>> common{
            {"lineEditTitle", u"ti"_s},       {"lineEditUploader", u"up"_s},
            {"lineEditSpectDOI", u"do"_s},    {"textEditCitations", u"re"_s},
            {"lineEditSourceT", u"te"_s},     {"textEditComments", u"co"_s},
            {"lineEditFacilityDate", u"fa"_s}};
        for (const auto& [field, shown] : common)
            QCOMPARE(html(window, field), shown);
        const bool simulated = type == simulation;
        QCOMPARE(html(window, "lineEditSource"), simulated ? u"le"_s : u"so"_s);
        QCOMPARE(html(window, "lineEditResolution"), simulated ? u"fw"_s : u"rs"_s);
        QCOMPARE(html(window, "lineEditFlux"), simulated ? u"ai"_s : u"no"_s);
        QCOMPARE(text(window, "labelCreated"), u"cr"_s);
        QVERIFY(child<QCheckBox>(window, "checkBoxLineSpectrum")->isChecked());
        QCOMPARE(child<QComboBox>(window, "comboBoxType")->currentIndex(), type);
        QCOMPARE(window.windowTitle(), u"ti"_s);
        // Showing has changed nothing.
        QJsonObject record = window.model()->toJson();
        for (const QString& key : record.keys()) {
            if (dataset.contains(key))
                QCOMPARE(record.value(key), dataset.value(key));
        }
    }

private:
    static void toggle(const SpectrumWindow& window)
    {
        auto* box = child<QCheckBox>(window, "checkBoxLineSpectrum");
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
    }
};

QTEST_MAIN(TestSpectrumTypes)
#include "tst_spectrumtypes.moc"
