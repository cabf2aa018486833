// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databasefile.h"
#include "database/speciestext.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QTest>

#include <cmath>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array formats{QJsonDocument::Compact, QJsonDocument::Indented};

QByteArray entry(const QByteArray& value)
{
    return R"({"Dataset1":)" + value + R"(,"Species":{"Name":"a"},"Type":"Species v1"})";
}

QByteArray byToolkit(const QByteArray& file, QJsonDocument::JsonFormat format)
{
    return DatabaseFile::memberText(6, QJsonDocument::fromJson(file).object(), format);
}

QByteArray copied(const QByteArray& file, QJsonDocument::JsonFormat format)
{
    return SpeciesText::asMember(file, u"Entry7"_s, format).value_or("left alone");
}

/// A number in one of the many forms in which people and programs write them.
QByteArray randomNumber(std::mt19937& random)
{
    const double value =
        std::ldexp(double(random()) - 2e9, int(random() % 120) - 80) * (random() % 3 == 0 ? 0 : 1);
    const int digits = int(random() % 18);
    switch (random() % 5) {
    case 0:
        return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
    case 1:
        return QByteArray::number(value, 'f', digits);
    case 2:
        return QByteArray::number(value, 'e', digits);
    case 3:
        return QByteArray::number(qint64(random()) * qint64(random() % 1'000'000'000));
    default:
        return QByteArray::number(value, 'g', digits);
    }
}

/// Text of a few characters, most of which mean something to somebody.
QByteArray randomText(std::mt19937& random, QByteArrayView characters)
{
    QByteArray text;
    for (int length = int(random() % 8); length >= 0; --length)
        text += characters.at(random() % characters.size());
    return text;
}

} // namespace

/// Entries copied into a database are what the toolkit would have made of them.
class TestSpeciesText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatTheEditorWritesIsCopied()
    {
        const QDir examples(QStringLiteral(KORVELA_EXAMPLES_FOLDER));
        const QStringList names = examples.entryList({u"*.json"_s});
        QVERIFY(!names.isEmpty());
        for (const QString& name : names) {
            QFile file(examples.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            const QJsonDocument document = QJsonDocument::fromJson(bytes);
            for (const auto format : formats) {
                QVERIFY(copied(bytes, format) == byToolkit(bytes, format));
                QVERIFY(copied(document.toJson(QJsonDocument::Compact), format) ==
                        byToolkit(bytes, format));
            }
        }
    }

    void usualValuesAreCopied_data()
    {
        QTest::addColumn<QByteArray>("value");
        for (const char* value :
             {"0", "-12", "1.5", "-0.001", "1e-07", "1000000", "123456789.123456", "[]", "{}",
              "[[],{}]", "[ 1 ,\t2\r\n, 3]", "true", "[false,null]", "\"\"",
              "\"\\\"\\\\\\b\\f\\n\\r\\t\"", "\"9.26 ± 0.01 µ\xf0\x9f\x98\x80\"",
              R"({"A":1,"A1":2,"a":{"b":[{"c":""}]}})"})
            QTest::newRow(value) << QByteArray(value);
    }

    void usualValuesAreCopied()
    {
        QFETCH(const QByteArray, value);
        for (const auto format : formats)
            QCOMPARE(copied(entry(value), format), byToolkit(entry(value), format));
    }

    /// Whether they could be copied is not the point: where they are, it is right.
    void numbersAreWrittenAsTheToolkitDoes()
    {
        std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same numbers each time
        int copies = 0;
        for (int round = 0; round < 20'000; ++round) {
            const QByteArray number = randomNumber(random);
            const QByteArray file = entry('[' + number + ']');
            const QByteArray text = copied(file, QJsonDocument::Compact);
            if (text == "left alone")
                continue;
            ++copies;
            QCOMPARE(text, byToolkit(file, QJsonDocument::Compact));
        }
        QVERIFY(copies > 15'000);
    }

    void oddTextsAreLeftAloneOrRight()
    {
        const QByteArrayView marks(
            "{}[]:,\"\"\"\\\\u/tn01-.eE \n\tAB\x01\x7f\xc3\xa9\xef\xbf\xbe\xff");
        std::mt19937 random(2); // NOLINT(cert-msc51-cpp)
        for (int round = 0; round < 100'000; ++round) {
            QByteArray file =
                entry(round % 2 == 0 ? "[1,{\"A\":\"x\",\"B\":-2.5},true]" : "\"xx\"");
            if (round % 3 == 0)
                file = R"({"Type":"Species v1","a":{"b":1}})";
            const qsizetype place = qsizetype(random() % file.size());
            file.replace(place, qsizetype(random() % 4), randomText(random, marks));
            const auto format = formats.at(random() % 2);
            const auto text = SpeciesText::asMember(file, u"Entry7"_s, format);
            if (!text)
                continue;
            QVERIFY2(QJsonDocument::fromJson(file).isObject(), file.constData());
            QVERIFY2(*text == byToolkit(file, format), file.constData());
        }
    }

    void unusualFilesAreLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("file");
        const auto add = [](const char* name, const QByteArray& file) {
            QTest::newRow(name) << file;
        };
        add("empty", "");
        add("torn", entry("1").chopped(1));
        add("text behind", entry("1") + "x");
        add("byte order mark", "\xef\xbb\xbf" + entry("1"));
        add("no species", entry("1").replace("Species v1", "Spectrum v1"));
        add("no type", R"({"Species":{}})");
        add("type is no text", R"({"Species":{},"Type":1})");
        add("array", "[" + entry("1") + "]");
        add("keys in another order", R"({"Type":"Species v1","Species":{}})");
        add("no comma behind the type", R"({"Type":"Species v1" "a":1})");
        add("comma before all", R"({,"Type":"Species v1"})");
        add("comma behind all", R"({"Type":"Species v1",})");
        add("key twice", entry(R"({"A":1,"A":2})"));
        add("key with an escape", entry("{\"\\u0041\":1}"));
        add("key that is not ASCII", entry("{\"ä\":1}"));
        add("escaped slash", entry("\"a\\/b\""));
        add("escaped letter", entry("\"\\u0041\""));
        add("bare line feed", entry("\"a\nb\""));
        add("no UTF-8", entry("\"\xff\""));
        add("surrogate in UTF-8", entry("\"\xed\xa0\x80\""));
        add("too large a number", entry("1e999"));
        add("no number", entry("1-2"));
        add("deep", entry(QByteArray(100, '[') + QByteArray(100, ']')));
    }

    void typeMayStandAnywhere_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("first") << QByteArray(R"({"Type":"Species v1","a":1,"b":[]})");
        QTest::newRow("in the middle") << QByteArray(R"({"Species":{},"Type":"Species v1","a":1})");
        QTest::newRow("last") << QByteArray(R"({"Species":{},"Type":"Species v1"})");
        QTest::newRow("alone") << QByteArray(R"({"Type":"Species v1"})");
    }
    void typeMayStandAnywhere()
    {
        QFETCH(const QByteArray, file);
        for (const auto format : formats)
            QCOMPARE(copied(file, format), byToolkit(file, format));
    }

    void unusualFilesAreLeftAlone()
    {
        QFETCH(const QByteArray, file);
        for (const auto format : formats)
            QVERIFY(!SpeciesText::asMember(file, u"Entry1"_s, format));
    }
};

QTEST_APPLESS_MAIN(TestSpeciesText)
#include "tst_speciestext.moc"
