// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"
#include "widgets/cleantextedit.h"

#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

#include <functional>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

const QStringList speciesTexts{u"Name"_s,
                               u"Aliases"_s,
                               u"Formula"_s,
                               u"InChI"_s,
                               u"CAS"_s,
                               u"PubChem"_s,
                               u"AIE"_s,
                               u"VIE"_s,
                               u"AIE_Comment"_s,
                               u"VIE_Comment"_s,
                               u"StructuralFormula"_s};
const QStringList spectrumTexts{
    u"Title"_s,  u"Uploader"_s,        u"DOI"_s,          u"FurtherRefs"_s,
    u"T"_s,      u"FurtherComments"_s, u"CreatedDate"_s,  u"FacilityDate"_s,
    u"Source"_s, u"Resolution"_s,      u"Normalization"_s};

QJsonObject withAll(const QStringList& keys, const QJsonValue& value)
{
    QJsonObject object;
    for (const QString& key : keys)
        object.insert(key, value);
    return object;
}

} // namespace

/// Well-formed files whose values are not what their keys promise.
class TestHostileTexts : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        // What a file does not say has to go, so there is something of everything.
        QJsonObject species = withAll(speciesTexts, u"old"_s);
        species.insert(u"Mass"_s, 18.01);
        QJsonObject dataset = withAll(spectrumTexts, u"old"_s);
        dataset.insert(u"LineSpectrum"_s, true);
        open(species, dataset);
        QCOMPARE(cell(*window, SpeciesModel::VieComment), u"old"_s);
    }

    void textsOfAnotherTypeReadAsEmpty_data() { otherTypes(); }

    void textsOfAnotherTypeReadAsEmpty()
    {
        QFETCH(QJsonValue, value);
        open(withAll(speciesTexts, value), withAll(spectrumTexts, value));
        for (int column = 0; column < SpeciesModel::StructureImage; ++column) {
            if (column != SpeciesModel::Mass)
                QCOMPARE(cell(*window, static_cast<SpeciesModel::Column>(column)), QString());
        }
        QVERIFY(window->findChild<SpeciesModel*>()->image().isNull());
        const QJsonObject record = spectra(*window).constFirst()->model()->toJson();
        for (const QString& key : spectrumTexts)
            QCOMPARE(record[key], QJsonValue(QString()));
        QCOMPARE(child<QLabel>(*window, "labelCreated")->text(), QString());
    }

    void massIsANumberOrZero_data()
    {
        QTest::addColumn<QJsonValue>("value");
        QTest::addColumn<double>("mass");
        QTest::newRow("number") << QJsonValue(16.04) << 16.04;
        QTest::newRow("whole number") << QJsonValue(16) << 16.0;
        QTest::newRow("negative") << QJsonValue(-1e-300) << -1e-300;
        QTest::newRow("huge") << QJsonValue(1e308) << 1e308;
        QTest::newRow("string") << QJsonValue(u"16.04"_s) << 0.0;
        QTest::newRow("bool") << QJsonValue(true) << 0.0;
        QTest::newRow("null") << QJsonValue() << 0.0;
        QTest::newRow("array") << QJsonValue(QJsonArray{16.04}) << 0.0;
        QTest::newRow("object") << QJsonValue(QJsonObject{{u"Mass"_s, 16.04}}) << 0.0;
    }

    void massIsANumberOrZero()
    {
        QFETCH(QJsonValue, value);
        QFETCH(double, mass);
        open({{u"Mass"_s, value}}, {});
        QCOMPARE(savedSpecies()[u"Mass"], QJsonValue(mass));
    }

    void spectrumTypeIsAnIntegerOrZero_data()
    {
        QTest::addColumn<QJsonValue>("value");
        QTest::addColumn<int>("type");
        QTest::newRow("simulation") << QJsonValue(4) << 4;
        QTest::newRow("last") << QJsonValue(5.0) << 5;
        QTest::newRow("fraction") << QJsonValue(4.5) << 0;
        QTest::newRow("beyond integers") << QJsonValue(1e300) << 0;
        QTest::newRow("string") << QJsonValue(u"4"_s) << 0;
        QTest::newRow("bool") << QJsonValue(true) << 0;
        QTest::newRow("null") << QJsonValue() << 0;
        QTest::newRow("array") << QJsonValue(QJsonArray{4}) << 0;
        QTest::newRow("object") << QJsonValue(QJsonObject{}) << 0;
    }

    void spectrumTypeIsAnIntegerOrZero()
    {
        QFETCH(QJsonValue, value);
        QFETCH(int, type);
        open({}, {{u"SpectType"_s, value}});
        QCOMPARE(savedDataset()[u"SpectType"], QJsonValue(type));
        QCOMPARE(child<QComboBox>(*window, "comboBoxType")->currentIndex(), type);
        QCOMPARE(savedDataset().contains(u"LevelOfTheory"), type == 4);
    }

    void spectrumTypeOutsideTheListChoosesNone_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("negative") << -1;
        QTest::newRow("six") << 6;
        QTest::newRow("largest") << std::numeric_limits<int>::max();
    }

    void spectrumTypeOutsideTheListChoosesNone()
    {
        QFETCH(int, type);
        open({}, {{u"SpectType"_s, type}, {u"Source"_s, u"lamp"_s}});
        QCOMPARE(child<QComboBox>(*window, "comboBoxType")->currentIndex(), -1);
        QCOMPARE(child<QLabel>(*spectra(*window).constFirst(), "label_8")->text(), u"Source"_s);
        QCOMPARE(child<QTextEdit>(*window, "lineEditSource")->toPlainText(), u"lamp"_s);
    }

    void lineSpectrumIsABoolOrFalse_data()
    {
        QTest::addColumn<QJsonValue>("value");
        QTest::addColumn<bool>("line");
        QTest::newRow("true") << QJsonValue(true) << true;
        QTest::newRow("false") << QJsonValue(false) << false;
        QTest::newRow("string") << QJsonValue(u"true"_s) << false;
        QTest::newRow("number") << QJsonValue(1) << false;
        QTest::newRow("null") << QJsonValue() << false;
        QTest::newRow("array") << QJsonValue(QJsonArray{true}) << false;
    }

    void lineSpectrumIsABoolOrFalse()
    {
        QFETCH(QJsonValue, value);
        QFETCH(bool, line);
        open({}, {{u"LineSpectrum"_s, value}, {u"E"_s, QJsonArray{1}}, {u"I"_s, QJsonArray{2}}});
        QCOMPARE(savedDataset()[u"LineSpectrum"], QJsonValue(line));
    }

    void pointsReadAsFarAsTheyAreNumbers_data()
    {
        QTest::addColumn<QByteArray>("dataset");
        QTest::addColumn<QString>("points");
        const auto add = [](const char* name, const char* dataset, const QString& points) {
            QTest::newRow(name) << QByteArray(dataset) << points;
        };
        add("numbers", R"({"E": [10, 11], "I": [1, 2]})", u"10; 1\n11; 2"_s);
        add("numbers as strings", R"({"E": ["10", 11], "I": [1, "2"]})", u"0; 1\n11; 0"_s);
        add("null", R"({"E": [10, null], "I": [1, 2]})", u"10; 1\n0; 2"_s);
        add("arrays in it", R"({"E": [[10], 11], "I": [{"I": 1}, 2]})", u"0; 0\n11; 2"_s);
        add("extremes", R"({"E": [1e308, -1e-308], "I": [0.0, 4e-324]})",
            u"1e+308; 0\n-1e-308; 4.94066e-324"_s);
        add("unequal", R"({"E": [10, 11, 12], "I": [1, 2]})", QString());
        add("no intensities", R"({"E": [10, 11]})", QString());
        add("text for arrays", R"({"E": "10", "I": "1"})", QString());
        add("number for arrays", R"({"E": 10, "I": 1})", QString());
        add("objects for arrays", R"({"E": {"0": 10}, "I": {"0": 1}})", QString());
        add("older form", R"({"Spectrum": [{"E": 1, "I": 2}], "E": [5], "I": [6]})", u"1; 2"_s);
        add("older form, odd elements", R"({"Spectrum": [7, "x", null, {}, {"E": "1", "I": 2}]})",
            u"0; 0\n0; 0\n0; 0\n0; 0\n0; 2"_s);
        add("older form of another type", R"({"Spectrum": "x", "E": [5], "I": [6]})", QString());
    }

    void pointsReadAsFarAsTheyAreNumbers()
    {
        QFETCH(QByteArray, dataset);
        QFETCH(QString, points);
        open({}, QJsonDocument::fromJson(dataset).object());
        QCOMPARE(child<QPlainTextEdit>(*window, "textEditSpect")->toPlainText(), points);
    }

    void manyPointsAreRead()
    {
        QJsonArray energies;
        QJsonArray intensities;
        for (int i = 0; i < 50'000; ++i) {
            energies.append(i);
            intensities.append(i);
        }
        open({}, {{u"E"_s, energies}, {u"I"_s, intensities}});
        QCOMPARE(spectra(*window).constFirst()->model()->points().constLast(),
                 QPointF(49'999, 49'999));
    }

    void manyDatasetsAreRead()
    {
        QStringList titles;
        for (int i = 0; i < 60; ++i)
            titles.append(QString::number(i));
        QVERIFY(window->openEntry(sandbox->write(u"many.json"_s, speciesFile(u"Water"_s, titles))));
        QCOMPARE(subWindows(*window).size(), 60);
    }

    void endlessWordOpensInTime_data()
    {
        QTest::addColumn<QString>("speciesKey");
        QTest::addColumn<QString>("datasetKey");
        QTest::addColumn<int>("length");
        // A field of several lines that took quadratic time would need a quarter of an hour and
        // meet the time limit of every test function. A title is measured whole for its tab, and
        // more than once: it takes its time, but in proportion.
        constexpr int aMegabyte = 1'000'000;
        QTest::newRow("name") << u"Name"_s << QString() << aMegabyte;
        QTest::newRow("title") << QString() << u"Title"_s << aMegabyte / 4;
        QTest::newRow("aliases") << u"Aliases"_s << QString() << 2 * aMegabyte;
        QTest::newRow("citations") << QString() << u"FurtherRefs"_s << 2 * aMegabyte;
        QTest::newRow("comments") << QString() << u"FurtherComments"_s << 2 * aMegabyte;
    }

    void endlessWordOpensInTime()
    {
        QFETCH(QString, speciesKey);
        QFETCH(QString, datasetKey);
        QFETCH(int, length);
        const QString word(length, u'x');
        open({{speciesKey, word}}, {{datasetKey, word}});
        QVERIFY((speciesKey.isEmpty() ? savedDataset()[datasetKey] : savedSpecies()[speciesKey]) ==
                QJsonValue(word));
    }

    void bareLessThanStaysInEveryField()
    {
        const QString opened = u"R<sup>2</sup> < 10 meV"_s;
        const QString changed = u"R<sup>2</sup> < 10 meV <5"_s;
        open(withAll(speciesTexts, opened), withAll(spectrumTexts, opened));
        QCOMPARE(inEveryField([](CleanTextEdit* field) {
                     field->moveCursor(QTextCursor::End);
                     QTest::keyClicks(field, u" <5"_s);
                 }),
                 20);
        for (int round = 0; round < 3; ++round) {
            const QJsonObject file = saved();
            for (const QString& key : speciesTexts) {
                if (key != u"StructuralFormula"_s)
                    QCOMPARE(file[u"Species"][key], QJsonValue(changed));
            }
            for (const QString& key : spectrumTexts) {
                if (key != u"CreatedDate"_s)
                    QCOMPARE(file[u"Dataset1"][key], QJsonValue(changed));
            }
            open(file[u"Species"].toObject(), file[u"Dataset1"].toObject());
            QCOMPARE(inEveryField([](CleanTextEdit* /*field*/) {}), 20);
        }
    }

private:
    /// Enters every rich-text field with a raised 2, does @p something there and leaves it again;
    /// returns how many there were.
    int inEveryField(const std::function<void(CleanTextEdit*)>& something)
    {
        int count = 0;
        const auto fields = window->findChildren<CleanTextEdit*>();
        for (CleanTextEdit* field : fields) {
            if (!field->cleanedHtml().contains(u"<sup>2</sup>"))
                continue;
            field->setFocus();
            something(field);
            QTest::keyClick(field, Qt::Key_Tab);
            count += field->hasFocus() ? 0 : 1;
        }
        return count;
    }

    static void otherTypes()
    {
        QTest::addColumn<QJsonValue>("value");
        QTest::newRow("null") << QJsonValue();
        QTest::newRow("true") << QJsonValue(true);
        QTest::newRow("number") << QJsonValue(58.08);
        QTest::newRow("array") << QJsonValue(QJsonArray{u"text"_s});
        QTest::newRow("object") << QJsonValue(QJsonObject{{u"Name"_s, u"text"_s}});
    }

    void open(const QJsonObject& species, const QJsonObject& dataset)
    {
        const QJsonObject file{
            {u"Type"_s, u"Species v1"_s}, {u"Species"_s, species}, {u"Dataset1"_s, dataset}};
        const QString path = sandbox->write(u"a.json"_s, QJsonDocument(file).toJson());
        QVERIFY(window->openEntry(path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(subWindows(*window).size(), 1);
        // The sub-windows of before have been closed but are still there.
        QTRY_COMPARE(window->findChildren<SpectrumWindow*>().size(), 1);
    }

    [[nodiscard]] QJsonObject saved() const
    {
        trigger(*window, "actionSaveSpecies");
        return QJsonDocument::fromJson(sandbox->read(u"a.json"_s)).object();
    }
    [[nodiscard]] QJsonObject savedSpecies() const { return saved()[u"Species"].toObject(); }
    [[nodiscard]] QJsonObject savedDataset() const { return saved()[u"Dataset1"].toObject(); }
};

QTEST_MAIN(TestHostileTexts)
#include "tst_hostiletexts.moc"
