// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

using Points = QList<QPointF>;
using Cells = QMap<int, QVariant>;

QJsonObject parsed(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        qFatal("not an object: %s", json.constData());
    return document.object();
}

QVariant cell(const SpectrumModel& model, int column)
{
    return model.data(model.index(0, column), Qt::EditRole);
}

/// A value of its own in every cell.
void fillCells(SpectrumModel& model, int type)
{
    for (int column = 0; column < 16; ++column)
        model.setData(model.index(0, column), u"cell %1"_s.arg(column));
    model.setData(model.index(0, 3), type);
    model.setData(model.index(0, 9), true);
}

constexpr auto oldContent =
    R"({"E": [7], "I": [8], "Title": "old", "T": "old", "CreatedDate": "old",
    "LineSpectrum": true, "SpectType": 5, "Source": "old", "Resolution": "old",
    "Normalization": "old"})";

} // namespace

/// The record in which one spectrum dataset is stored.
class TestSpectrumRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyDatasetHasAllKeys()
    {
        const QJsonObject expected = parsed(R"({
            "Title": "", "Uploader": "", "DOI": "", "SpectType": 0, "FurtherRefs": "", "T": "",
            "FurtherComments": "", "CreatedDate": "", "FacilityDate": "", "LineSpectrum": false,
            "Source": "", "Resolution": "", "Normalization": "", "E": [], "I": []})");
        QCOMPARE(expected.size(), 15);
        QCOMPARE(SpectrumModel().toJson(), expected);
    }

    void experimentIsWrittenWithItsOwnThreeFields_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("ms-TPES") << 0;
        QTest::newRow("ms-SPES") << 1;
        QTest::newRow("TPES") << 2;
        QTest::newRow("PES") << 3;
        QTest::newRow("PIS") << 5;
    }
    void experimentIsWrittenWithItsOwnThreeFields()
    {
        QFETCH(int, type);
        SpectrumModel model;
        model.fromJson(parsed(R"({"E": [10, 10.5], "I": [1, 2]})"));
        fillCells(model, type);
        QJsonObject expected = parsed(R"({
            "Title": "cell 0", "Uploader": "cell 1", "DOI": "cell 2", "FurtherRefs": "cell 4",
            "T": "cell 5", "FurtherComments": "cell 6", "CreatedDate": "cell 7",
            "FacilityDate": "cell 8", "LineSpectrum": true, "Source": "cell 10",
            "Resolution": "cell 11", "Normalization": "cell 12", "E": [10, 10.5], "I": [1, 2]})");
        expected.insert(u"SpectType"_s, type);
        QCOMPARE(expected.size(), 15);
        QCOMPARE(model.toJson(), expected);
    }

    void simulationIsWrittenWithItsOwnThreeFields()
    {
        SpectrumModel model;
        model.fromJson(parsed(R"({"E": [3, 1, 1], "I": [1, -2, 0]})"));
        fillCells(model, 4);
        const QJsonObject expected = parsed(R"({
            "Title": "cell 0", "Uploader": "cell 1", "DOI": "cell 2", "SpectType": 4,
            "FurtherRefs": "cell 4", "T": "cell 5", "FurtherComments": "cell 6",
            "CreatedDate": "cell 7", "FacilityDate": "cell 8", "LineSpectrum": true,
            "LevelOfTheory": "cell 13", "ConvolutionFWHM": "cell 14", "AIE": "cell 15",
            "E": [3, 1, 1], "I": [1, -2, 0]})");
        QCOMPARE(expected.size(), 15);
        QCOMPARE(model.toJson(), expected);
    }

    void valuesAreWrittenWithTheirTypes()
    {
        SpectrumModel model;
        model.setData(model.index(0, 0), 17);
        model.setData(model.index(0, 3), u"2"_s);
        model.setData(model.index(0, 9), 1);
        model.setData(model.index(0, 10), 21.2);
        const QJsonObject record = model.toJson();
        QCOMPARE(record.value(u"Title"_s), QJsonValue(u"17"_s));
        QCOMPARE(record.value(u"SpectType"_s), QJsonValue(2));
        QCOMPARE(record.value(u"LineSpectrum"_s), QJsonValue(true));
        QCOMPARE(record.value(u"Source"_s), QJsonValue(u"21.2"_s));
    }

    void pointsAreWrittenInFullFromTheText()
    {
        QPlainTextEdit editor;
        SpectrumModel model(nullptr, &editor);
        editor.setPlainText(u"header\n12.345678901 1e-7\n12 3\n12 3\n5 5 5"_s);
        QMetaObject::invokeMethod(&model, "emitSpectrumDataChanged", Qt::DirectConnection);
        const QJsonObject record = model.toJson();
        QCOMPARE(record.value(u"E"_s).toArray(), (QJsonArray{12.345678901, 12, 12}));
        QCOMPARE(record.value(u"I"_s).toArray(), (QJsonArray{1e-7, 3, 3}));
    }

    void foreignTagsAreRemovedFromCommonTexts_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("key");
        QTest::newRow("title") << 0 << u"Title"_s;
        QTest::newRow("uploader") << 1 << u"Uploader"_s;
        QTest::newRow("DOI") << 2 << u"DOI"_s;
        QTest::newRow("citations") << 4 << u"FurtherRefs"_s;
        QTest::newRow("temperature") << 5 << u"T"_s;
        QTest::newRow("comments") << 6 << u"FurtherComments"_s;
        QTest::newRow("creation date") << 7 << u"CreatedDate"_s;
        QTest::newRow("date and facility") << 8 << u"FacilityDate"_s;
    }
    void foreignTagsAreRemovedFromCommonTexts()
    {
        QFETCH(int, column);
        QFETCH(QString, key);
        SpectrumModel model;
        model.setData(model.index(0, column),
                      u"<span style=\"color:red\">H<sub>2</sub></span>O<SUB>3</SUB>"
                      "<subscript>x</subscript><br/><sup class=\"a\">+</sup><br><p>a < b"_s);
        QCOMPARE(model.toJson().value(key).toString(),
                 u"H<sub>2</sub>O3x<br/><sup class=\"a\">+</sup><br>a < b"_s);
    }

    void typeDependentTextsAreWrittenAsTheyAre_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("key");
        QTest::newRow("source") << 2 << 10 << u"Source"_s;
        QTest::newRow("resolution") << 2 << 11 << u"Resolution"_s;
        QTest::newRow("flux") << 2 << 12 << u"Normalization"_s;
        QTest::newRow("level of theory") << 4 << 13 << u"LevelOfTheory"_s;
        QTest::newRow("width") << 4 << 14 << u"ConvolutionFWHM"_s;
        QTest::newRow("0-0 transition") << 4 << 15 << u"AIE"_s;
    }
    void typeDependentTextsAreWrittenAsTheyAre()
    {
        QFETCH(int, type);
        QFETCH(int, column);
        QFETCH(QString, key);
        SpectrumModel model;
        model.setData(model.index(0, 3), type);
        model.setData(model.index(0, column), u"<span>H<sub>2</sub></span><b>x</b>"_s);
        QCOMPARE(model.toJson().value(key).toString(), u"<span>H<sub>2</sub></span><b>x</b>"_s);
    }

    void keysAreReadIntoTheirColumns_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<Cells>("cells");
        const Cells common{{0, u"ti"_s}, {1, u"up"_s}, {2, u"do"_s},
                           {4, u"re"_s}, {5, u"te"_s}, {6, u"co"_s},
                           {7, u"cr"_s}, {8, u"fa"_s}, {9, QVariant(true)}};
        Cells experiment = common;
        experiment.insert({{3, 1}, {10, u"so"_s}, {11, u"rs"_s}, {12, u"no"_s}});
        experiment.insert({{13, QVariant()}, {14, QVariant()}, {15, QVariant()}});
        Cells simulation = common;
        simulation.insert({{3, 4}, {13, u"le"_s}, {14, u"fw"_s}, {15, u"ai"_s}});
        simulation.insert({{10, QVariant()}, {11, QVariant()}, {12, QVariant()}});
        const QByteArray texts = R"("Title": "ti", "Uploader": "up", "DOI": "do",
            "FurtherRefs": "re", "T": "te", "FurtherComments": "co", "CreatedDate": "cr",
            "FacilityDate": "fa", "LineSpectrum": true, "Type": "Spectrum v1", "More": [1],
            "Source": "so", "Resolution": "rs", "Normalization": "no", "LevelOfTheory": "le",
            "ConvolutionFWHM": "fw", "AIE": "ai", )";
        QTest::newRow("experiment") << QByteArray("{" + texts + R"("SpectType": 1})") << experiment;
        QTest::newRow("simulation") << QByteArray("{" + texts + R"("SpectType": 4})") << simulation;
    }
    void keysAreReadIntoTheirColumns()
    {
        QFETCH(QByteArray, record);
        QFETCH(Cells, cells);
        QCOMPARE(cells.size(), 16);
        SpectrumModel model;
        fillCells(model, 2);
        model.fromJson(parsed(record));
        for (const int column : cells.keys()) {
            QVERIFY2(
                cell(model, column) == cells.value(column),
                qPrintable(u"column %1: %2"_s.arg(column).arg(cell(model, column).toString())));
            QCOMPARE(cell(model, column).isValid(), cells.value(column).isValid());
        }
    }

    void numbersAndFlagsAreReadAsSuch()
    {
        SpectrumModel model;
        model.fromJson(parsed(R"({"SpectType": 5, "LineSpectrum": true})"));
        QCOMPARE(cell(model, 3), QVariant(5));
        QCOMPARE(cell(model, 9), QVariant(true));
        QCOMPARE(cell(model, 3).metaType(), QMetaType::fromType<int>());
        QCOMPARE(cell(model, 9).metaType(), QMetaType::fromType<bool>());
    }

    void missingKeysReadAsEmpty_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("empty record") << QByteArray("{}");
        QTest::newRow("numbers for texts")
            << QByteArray(R"({"Title": 1, "T": 300, "CreatedDate": 2024, "LineSpectrum": 1,
                              "SpectType": "4", "Source": 21.2, "AIE": "9", "E": 1, "I": 1})");
        QTest::newRow("null everywhere")
            << QByteArray(R"({"Title": null, "T": null, "CreatedDate": null, "LineSpectrum": null,
                              "SpectType": null, "Source": null, "E": null, "I": null})");
        QTest::newRow("objects and arrays")
            << QByteArray(R"({"Title": {}, "T": ["300"], "CreatedDate": {"a": "b"},
                              "LineSpectrum": [true], "SpectType": [4], "Source": ["x"],
                              "E": {"0": 1}, "I": {"0": 1}})");
        QTest::newRow("texts for flags")
            << QByteArray(R"({"LineSpectrum": "true", "SpectType": true, "E": "1", "I": "1"})");
        QTest::newRow("type is no integer") << QByteArray(R"({"SpectType": 4.5})");
        QTest::newRow("type is beyond all integers") << QByteArray(R"({"SpectType": 1e300})");
    }
    void missingKeysReadAsEmpty()
    {
        QFETCH(QByteArray, record);
        QPlainTextEdit editor;
        SpectrumModel model(nullptr, &editor);
        model.fromJson(parsed(oldContent));
        QCOMPARE(editor.toPlainText(), u"7; 8"_s);

        model.fromJson(parsed(record));
        QCOMPARE(model.toJson(), SpectrumModel().toJson());
        QCOMPARE(editor.toPlainText(), QString());
        QCOMPARE(cell(model, 7), QVariant(QString()));
        QVERIFY(!cell(model, 13).isValid());
    }

    void emptyTextsLeaveEmptyCellsUntouched()
    {
        SpectrumModel model;
        model.fromJson({});
        for (const int column : {0, 1, 2, 4, 5, 6, 7, 8, 10, 11, 12, 13, 14, 15})
            QVERIFY(!cell(model, column).isValid());
    }

    void otherKindOfFieldsIsClearedByReading()
    {
        SpectrumModel model;
        fillCells(model, 2);
        model.fromJson(parsed(R"({"SpectType": 4, "Source": "X", "LevelOfTheory": "G4"})"));
        QVERIFY(!cell(model, 10).isValid());
        QVERIFY(!cell(model, 11).isValid());
        QVERIFY(!cell(model, 12).isValid());
        QCOMPARE(cell(model, 13).toString(), u"G4"_s);
        QCOMPARE(cell(model, 14).toString(), QString());

        model.fromJson(parsed(R"({"SpectType": 0, "Source": "X", "LevelOfTheory": "G4"})"));
        QCOMPARE(cell(model, 10).toString(), u"X"_s);
        QVERIFY(!cell(model, 13).isValid());
        QVERIFY(!cell(model, 14).isValid());
        QVERIFY(!cell(model, 15).isValid());
    }

    void pointsAreReadIntoTheText_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QString>("text");
        QTest::newRow("arrays") << QByteArray(R"({"E": [10, 10.5], "I": [1, -2]})")
                                << u"10; 1\n10.5; -2"_s;
        QTest::newRow("six digits")
            << QByteArray(R"({"E": [12.34567], "I": [1234567.8]})") << u"12.3457; 1.23457e+06"_s;
        QTest::newRow("order and duplicates stay")
            << QByteArray(R"({"E": [3, 1, 3], "I": [1, 2, 1]})") << u"3; 1\n1; 2\n3; 1"_s;
        QTest::newRow("what is no number reads as 0")
            << QByteArray(R"({"E": [1, "2", null], "I": [{}, 5, true]})") << u"1; 0\n0; 5\n0; 0"_s;
        QTest::newRow("fewer intensities")
            << QByteArray(R"({"E": [1, 2, 3], "I": [1, 2]})") << QString();
        QTest::newRow("more intensities") << QByteArray(R"({"E": [1], "I": [1, 2]})") << QString();
        QTest::newRow("no intensities") << QByteArray(R"({"E": [1]})") << QString();
        QTest::newRow("no energies") << QByteArray(R"({"I": [1]})") << QString();
        QTest::newRow("empty arrays") << QByteArray(R"({"E": [], "I": []})") << QString();

        QTest::newRow("older form")
            << QByteArray(R"({"Spectrum": [{"E": 1, "I": 2}, {"E": 12.34567, "I": 0.5, "x": 1}]})")
            << u"1; 2\n12.3457; 0.5"_s;
        QTest::newRow("older form goes before the arrays")
            << QByteArray(R"({"Spectrum": [{"E": 1, "I": 2}], "E": [5], "I": [6]})") << u"1; 2"_s;
        QTest::newRow("older form, empty, goes before the arrays")
            << QByteArray(R"({"Spectrum": [], "E": [5], "I": [6]})") << QString();
        QTest::newRow("older form, no array, goes before the arrays")
            << QByteArray(R"({"Spectrum": null, "E": [5], "I": [6]})") << QString();
        QTest::newRow("older form with odd elements")
            << QByteArray(R"({"Spectrum": [1, {"E": 2}, {"I": "3"}, [], {"E": 4, "I": 5}]})")
            << u"0; 0\n2; 0\n0; 0\n0; 0\n4; 5"_s;
    }
    void pointsAreReadIntoTheText()
    {
        QFETCH(QByteArray, record);
        QFETCH(QString, text);
        QPlainTextEdit editor;
        SpectrumModel model(nullptr, &editor);
        model.fromJson(parsed(oldContent));
        model.fromJson(parsed(record));
        QCOMPARE(editor.toPlainText(), text);
        QCOMPARE(model.points().size(), text.isEmpty() ? 0 : text.count(u'\n') + 1);
    }

    void readingEmitsNothingAndStartsNoTimer()
    {
        QPlainTextEdit editor;
        SpectrumModel model(nullptr, &editor);
        const QSignalSpy cells(&model, &SpectrumModel::dataChanged);
        const QSignalSpy points(&model, &SpectrumModel::spectrumDataChanged);
        const QSignalSpy text(&editor, &QPlainTextEdit::textChanged);
        model.fromJson(parsed(oldContent));
        QCOMPARE(cells.count(), 0);
        QCOMPARE(points.count(), 0);
        QVERIFY(text.count() > 0);
        QVERIFY(!model.findChild<QTimer*>()->isActive());
        // Only for the time of reading.
        model.setData(model.index(0, 0), u"new"_s);
        model.normalizeSpectrum();
        QCOMPARE(cells.count(), 1);
        QCOMPARE(points.count(), 1);
    }

    void readingWorksWithoutAnEditor()
    {
        SpectrumModel model;
        model.fromJson(parsed(oldContent));
        QCOMPARE(model.points(), (Points{{7, 8}}));
    }

    void readingRoundsWhatIsWrittenLater()
    {
        SpectrumModel model;
        model.fromJson(parsed(R"({"E": [12.345678], "I": [1000000.4]})"));
        const QJsonObject record = model.toJson();
        QCOMPARE(record.value(u"E"_s).toArray(), QJsonArray{12.3457});
        QCOMPARE(record.value(u"I"_s).toArray(), QJsonArray{1e6});
    }

    void roundTripKeepsTheRecord_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("experiment") << QByteArray(R"({
            "Title": "Benzene <sup>2</sup>E<sub>1g</sub>", "Uploader": "Å. Ñandú", "DOI": "10.1/x<y",
            "SpectType": 3, "FurtherRefs": "a<br>b", "T": "300", "FurtherComments": "R&D",
            "CreatedDate": "2024-02-29", "FacilityDate": "SLS", "LineSpectrum": false,
            "Source": "He <i>I</i>", "Resolution": "< 10", "Normalization": "none",
            "E": [9.2, 9.25], "I": [0.5, 1]})");
        QTest::newRow("simulation") << QByteArray(R"({
            "Title": "", "Uploader": "", "DOI": "", "SpectType": 4, "FurtherRefs": "", "T": "0",
            "FurtherComments": "", "CreatedDate": "", "FacilityDate": "", "LineSpectrum": true,
            "LevelOfTheory": "G4", "ConvolutionFWHM": "20", "AIE": "9.24", "E": [], "I": []})");
    }
    void roundTripKeepsTheRecord()
    {
        QFETCH(QByteArray, record);
        SpectrumModel model;
        fillCells(model, 1);
        model.fromJson(parsed(record));
        QCOMPARE(model.toJson(), parsed(record));
    }
};

QTEST_MAIN(TestSpectrumRecord)
#include "tst_spectrumrecord.moc"
