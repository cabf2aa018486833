// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QImage picture()
{
    QImage image(5, 2, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    image.setPixelColor(1, 1, Qt::yellow);
    return image;
}

QString base64Of(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return QString::fromLatin1(bytes.toBase64());
}

QJsonObject withValue(const QString& key, const QJsonValue& value)
{
    return QJsonObject{{key, value}};
}

void textFieldRows()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("column");
    QTest::newRow("Name") << u"Name"_s << 0;
    QTest::newRow("Aliases") << u"Aliases"_s << 1;
    QTest::newRow("Formula") << u"Formula"_s << 3;
    QTest::newRow("InChI") << u"InChI"_s << 4;
    QTest::newRow("CAS") << u"CAS"_s << 5;
    QTest::newRow("PubChem") << u"PubChem"_s << 6;
    QTest::newRow("AIE") << u"AIE"_s << 7;
    QTest::newRow("VIE") << u"VIE"_s << 8;
    QTest::newRow("AIE_Comment") << u"AIE_Comment"_s << 9;
    QTest::newRow("VIE_Comment") << u"VIE_Comment"_s << 10;
}

/// A record in which every field holds something else.
QJsonObject fullRecord()
{
    return {{u"Name"_s, u"water"_s},
            {u"Aliases"_s, u"oxidane<br>dihydrogen monoxide"_s},
            {u"Mass"_s, 18.015},
            {u"Formula"_s, u"H<sub>2</sub>O"_s},
            {u"InChI"_s, u"InChI=1S/H2O/h1H2"_s},
            {u"CAS"_s, u"7732-18-5"_s},
            {u"PubChem"_s, u"962"_s},
            {u"AIE"_s, u"12.621(2)"_s},
            {u"VIE"_s, u"12.65"_s},
            {u"AIE_Comment"_s, u"doi a"_s},
            {u"VIE_Comment"_s, u"doi v"_s},
            {u"StructuralFormula"_s, base64Of(picture(), "PNG")}};
}

} // namespace

/// The species object of a species file.
class TestSpeciesRecord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void freshRecordHasAllKeysButThePicture()
    {
        const QString empty(""_L1);
        const QJsonObject expected{
            {u"Name"_s, empty},        {u"Aliases"_s, empty},    {u"Mass"_s, 0},
            {u"Formula"_s, empty},     {u"InChI"_s, empty},      {u"CAS"_s, empty},
            {u"PubChem"_s, empty},     {u"AIE"_s, empty},        {u"VIE"_s, empty},
            {u"AIE_Comment"_s, empty}, {u"VIE_Comment"_s, empty}};
        QCOMPARE(SpeciesModel().toJson(), expected);
    }

    void everyTextCellIsWrittenUnderItsKey_data() { textFieldRows(); }

    void everyTextCellIsWrittenUnderItsKey()
    {
        QFETCH(const QString, key);
        QFETCH(const int, column);
        SpeciesModel model;
        model.setData(model.index(0, column), u"H<sub>2</sub> & <i>x</i>"_s);
        const QJsonObject record = model.toJson();
        QCOMPARE(record.value(key), QJsonValue(u"H<sub>2</sub> & x"_s));
        for (const QString& other : record.keys()) {
            if (other != key && other != "Mass"_L1)
                QCOMPARE(record.value(other), QJsonValue(QString(""_L1)));
        }
    }

    void everyKeyIsReadIntoItsTextCell_data() { textFieldRows(); }

    void everyKeyIsReadIntoItsTextCell()
    {
        QFETCH(const QString, key);
        QFETCH(const int, column);
        SpeciesModel model;
        model.fromJson(withValue(key, u"a <b>bold</b> <sub>2</sub> &amp; <"_s));
        QCOMPARE(model.data(model.index(0, column), Qt::EditRole),
                 QVariant(u"a <b>bold</b> <sub>2</sub> &amp; <"_s));
        for (int other = 0; other < 11; ++other) {
            if (other != column && other != SpeciesModel::Mass)
                QCOMPARE(model.data(model.index(0, other)).toString(), QString());
        }
    }

    void tagsOtherThanSubSupAndBrAreLeftOut_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("written");
        const auto row = [](const char* text, const char* written) {
            QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(written);
        };
        row("H<sub>2</sub>O", "H<sub>2</sub>O");
        row("a<br>b", "a<br>b");
        row("a<br/>b", "a<br/>b");
        row("<sub class=\"x\">2</sub>", "<sub class=\"x\">2</sub>");
        row("<b>bold</b>", "bold");
        row("<span style=\"color:red\">red</span>", "red");
        row("a<BR>b", "ab");
        row("<subscript>2</subscript>", "2");
        row("R&amp;D", "R&amp;D");
        row("1 > 2 < 3", "1 > 2 < 3");
    }

    void tagsOtherThanSubSupAndBrAreLeftOut()
    {
        QFETCH(const QString, text);
        SpeciesModel model;
        model.setData(model.index(0, SpeciesModel::Name), text);
        QTEST(model.toJson().value(u"Name"_s).toString(), "written");
    }

    void massIsWrittenAsNumber_data()
    {
        QTest::addColumn<QVariant>("cell");
        QTest::addColumn<double>("number");
        QTest::newRow("typed") << QVariant(u"16.04"_s) << 16.04;
        QTest::newRow("loaded") << QVariant(16.04) << 16.04;
        QTest::newRow("blanks around") << QVariant(u" 16.04 "_s) << 16.04;
        QTest::newRow("exponent") << QVariant(u"1.6e1"_s) << 16.0;
        QTest::newRow("whole") << QVariant(u"16"_s) << 16.0;
        QTest::newRow("negative") << QVariant(u"-1.5"_s) << -1.5;
        QTest::newRow("letters") << QVariant(u"heavy"_s) << 0.0;
        QTest::newRow("unit behind") << QVariant(u"16.04 amu"_s) << 0.0;
        QTest::newRow("decimal comma") << QVariant(u"16,04"_s) << 0.0;
        QTest::newRow("thousands") << QVariant(u"1,604.5"_s) << 0.0;
        QTest::newRow("markup") << QVariant(u"16<sub>0</sub>"_s) << 0.0;
        QTest::newRow("blank") << QVariant(u" "_s) << 0.0;
        QTest::newRow("never set") << QVariant() << 0.0;
    }

    void massIsWrittenAsNumber()
    {
        QFETCH(const QVariant, cell);
        SpeciesModel model;
        model.setData(model.index(0, SpeciesModel::Mass), cell);
        const QJsonValue mass = model.toJson().value(u"Mass"_s);
        QVERIFY(mass.isDouble());
        QTEST(mass.toDouble(), "number");
    }

    void emptiedMassIsWrittenAsZero()
    {
        SpeciesModel model;
        model.setData(model.index(0, SpeciesModel::Mass), u"16"_s);
        model.setData(model.index(0, SpeciesModel::Mass), QString());
        QCOMPARE(model.toJson().value(u"Mass"_s), QJsonValue(0));
    }

    void massIsReadAsNumber_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<double>("mass");
        QTest::newRow("fraction") << QByteArray(R"({"Mass": 16.04})") << 16.04;
        QTest::newRow("whole") << QByteArray(R"({"Mass": 16})") << 16.0;
        QTest::newRow("negative") << QByteArray(R"({"Mass": -1})") << -1.0;
        QTest::newRow("beyond 64 bits") << QByteArray(R"({"Mass": 1e300})") << 1e300;
        QTest::newRow("text") << QByteArray(R"({"Mass": "16.04"})") << 0.0;
        QTest::newRow("true") << QByteArray(R"({"Mass": true})") << 0.0;
        QTest::newRow("null") << QByteArray(R"({"Mass": null})") << 0.0;
        QTest::newRow("list") << QByteArray(R"({"Mass": [16.04]})") << 0.0;
        QTest::newRow("object") << QByteArray(R"({"Mass": {"Mass": 16.04}})") << 0.0;
        QTest::newRow("missing") << QByteArray("{}") << 0.0;
    }

    void massIsReadAsNumber()
    {
        QFETCH(const QByteArray, json);
        SpeciesModel model;
        model.fromJson(QJsonDocument::fromJson(json).object());
        const QVariant cell = model.data(model.index(0, SpeciesModel::Mass), Qt::EditRole);
        QCOMPARE(cell.metaType(), QMetaType::fromType<double>());
        QTEST(cell.toDouble(), "mass");
    }

    void lineBreaksOfAliasesAreReadAsMarkup_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("cell");
        const auto row = [](const char* name, const char* stored, const char* cell) {
            QTest::newRow(name) << QString::fromLatin1(stored) << QString::fromLatin1(cell);
        };
        row("LF", "a\nb\nc", "a<br>b<br>c");
        row("CR LF", "a\r\nb\r\nc", "a<br>b<br>c");
        row("both", "a\r\nb\nc", "a<br>b<br>c");
        row("LF CR", "a\n\rb", "a<br>\rb");
        row("CR alone", "a\rb", "a\rb");
        row("empty lines", "a\n\n\r\nb", "a<br><br><br>b");
        row("around", "\na\r\n", "<br>a<br>");
        row("markup", "a<br>b", "a<br>b");
    }

    void lineBreaksOfAliasesAreReadAsMarkup()
    {
        QFETCH(const QString, stored);
        SpeciesModel model;
        model.fromJson(withValue(u"Aliases"_s, stored));
        QTEST(model.data(model.index(0, SpeciesModel::Aliases)).toString(), "cell");
    }

    void lineBreaksOfOtherFieldsAreReadAsTheyAre()
    {
        SpeciesModel model;
        model.fromJson(withValue(u"Name"_s, u"a\r\nb\nc"_s));
        QCOMPARE(model.data(model.index(0, SpeciesModel::Name)).toString(), u"a\r\nb\nc"_s);
    }

    void pictureIsWrittenAsPngInBase64()
    {
        SpeciesModel model;
        model.setData(model.index(0, SpeciesModel::StructureImage), picture());
        const QJsonValue value = model.toJson().value(u"StructuralFormula"_s);
        QVERIFY(value.isString());
        const auto decoded = QByteArray::fromBase64Encoding(
            value.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
        QVERIFY(decoded);
        QVERIFY((*decoded).startsWith("\x89PNG\r\n\x1a\n"));
        QCOMPARE(value.toString().size() % 4, 0);
        QCOMPARE(QImage::fromData(*decoded, "PNG").convertToFormat(QImage::Format_RGB32),
                 picture());
    }

    void clearedPictureIsWrittenAsEmptyText()
    {
        SpeciesModel model;
        model.setData(model.index(0, SpeciesModel::StructureImage), picture());
        model.setData(model.index(0, SpeciesModel::StructureImage), QVariant());
        QCOMPARE(model.toJson().value(u"StructuralFormula"_s), QJsonValue(QString(""_L1)));
    }

    void pictureIsRead_data()
    {
        QTest::addColumn<QString>("text");
        const QString png = base64Of(picture(), "PNG");
        QTest::newRow("PNG") << png;
        QTest::newRow("BMP") << base64Of(picture(), "BMP");
        QTest::newRow("PPM") << base64Of(picture(), "PPM");
        QTest::newRow("line breaks inside") << QString(png).insert(20, u"\r\n"_s);
        QTest::newRow("foreign characters inside") << QString(png).insert(9, u" \u00e4 !"_s);
        QTest::newRow("no padding") << QString(png).remove(u'=');
    }

    void pictureIsRead()
    {
        QFETCH(const QString, text);
        SpeciesModel model;
        const QSignalSpy imageChanges(&model, &SpeciesModel::imageChanged);
        model.fromJson(withValue(u"StructuralFormula"_s, text));
        QCOMPARE(imageChanges.count(), 1);
        QCOMPARE(model.image().convertToFormat(QImage::Format_RGB32), picture());
    }

    void unreadablePictureClearsTheOldOne_data()
    {
        QTest::addColumn<QJsonObject>("record");
        const QString key = u"StructuralFormula"_s;
        const QString png = base64Of(picture(), "PNG");
        QTest::newRow("missing") << QJsonObject();
        QTest::newRow("empty") << withValue(key, QString(""_L1));
        QTest::newRow("text") << withValue(key, u"no picture at all"_s);
        QTest::newRow("base64 of text")
            << withValue(key, QString::fromLatin1(QByteArray("hello").toBase64()));
        QTest::newRow("truncated") << withValue(key, png.left(40));
        QTest::newRow("number") << withValue(key, 5);
        QTest::newRow("null") << withValue(key, QJsonValue::Null);
        QTest::newRow("list") << withValue(key, QJsonArray{png});
        QTest::newRow("object") << withValue(key, QJsonObject{{key, png}});
    }

    void unreadablePictureClearsTheOldOne()
    {
        QFETCH(const QJsonObject, record);
        SpeciesModel fresh;
        fresh.fromJson(record);
        QVERIFY(fresh.image().isNull());

        SpeciesModel model;
        model.setData(model.index(0, SpeciesModel::StructureImage), picture());
        const QSignalSpy imageChanges(&model, &SpeciesModel::imageChanged);
        model.fromJson(record);
        QVERIFY(model.image().isNull());
        QCOMPARE(imageChanges.count(), 1);
    }

    void valuesOfAnotherTypeReadAsEmptyText_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QJsonValue>("value");
        for (const char* key : {"Name", "Aliases", "Formula", "InChI", "CAS", "PubChem", "AIE",
                                "VIE", "AIE_Comment", "VIE_Comment"}) {
            const QString name = QString::fromLatin1(key);
            QTest::addRow("%s number", key) << name << QJsonValue(12.5);
            QTest::addRow("%s true", key) << name << QJsonValue(true);
            QTest::addRow("%s null", key) << name << QJsonValue(QJsonValue::Null);
            QTest::addRow("%s list", key) << name << QJsonValue(QJsonArray{u"a"_s});
            QTest::addRow("%s object", key) << name << QJsonValue(QJsonObject{{name, u"a"_s}});
        }
    }

    void valuesOfAnotherTypeReadAsEmptyText()
    {
        QFETCH(const QString, key);
        QFETCH(const QJsonValue, value);
        SpeciesModel model;
        model.fromJson(fullRecord());
        QJsonObject record = fullRecord();
        record.insert(key, value);
        model.fromJson(record);
        QJsonObject expected = fullRecord();
        expected.insert(key, QString(""_L1));
        QCOMPARE(model.toJson(), expected);
    }

    void readingOverwritesTheWholeRecord()
    {
        SpeciesModel model;
        model.fromJson(fullRecord());
        model.fromJson({});
        for (int column = 0; column < 11; ++column) {
            if (column != SpeciesModel::Mass)
                QCOMPARE(model.data(model.index(0, column)).toString(), QString());
        }
        QCOMPARE(model.data(model.index(0, SpeciesModel::Mass)), QVariant(0.0));
        QVERIFY(model.image().isNull());
    }

    void readingTheSameRecordAgainChangesNothing()
    {
        SpeciesModel model;
        const QSignalSpy changes(&model, &SpeciesModel::dataChanged);
        model.fromJson(fullRecord());
        QCOMPARE(changes.count(), 12);
        model.fromJson(fullRecord());
        QCOMPARE(changes.count(), 12);
    }

    void recordComesBackAsItWasWritten()
    {
        SpeciesModel first;
        first.fromJson(fullRecord());
        const QJsonObject written = first.toJson();
        QCOMPARE(written.size(), 12);
        QJsonObject text = written;
        text.remove(u"StructuralFormula"_s);
        QJsonObject expected = fullRecord();
        expected.remove(u"StructuralFormula"_s);
        QCOMPARE(text, expected);

        SpeciesModel second;
        second.fromJson(written);
        QCOMPARE(second.toJson(), written);
    }

    void unknownKeysAreIgnored()
    {
        QJsonObject record = fullRecord();
        record.insert(u"name"_s, u"other"_s);
        record.insert(u"Extra"_s, QJsonArray{1, 2});
        SpeciesModel model;
        model.fromJson(record);
        QCOMPARE(model.data(model.index(0, SpeciesModel::Name)).toString(), u"water"_s);
        QVERIFY(!model.toJson().contains(u"Extra"_s));
    }
};

QTEST_MAIN(TestSpeciesRecord)
#include "tst_speciesrecord.moc"
