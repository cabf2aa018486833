// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/casnumber.h"
#include "species/structuredownload.h"

#include <QTest>

#include <array>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

struct Substance
{
    const char* name;
    const char* casNumber;
};

constexpr std::array<Substance, 32> substances{{
    {"caffeine", "58-08-2"},
    {"formaldehyde", "50-00-0"},
    {"acetylsalicylic acid", "50-78-2"},
    {"ethanol", "64-17-5"},
    {"acetic acid", "64-19-7"},
    {"methanol", "67-56-1"},
    {"acetone", "67-64-1"},
    {"benzene", "71-43-2"},
    {"methane", "74-82-8"},
    {"ethane", "74-84-0"},
    {"ethene", "74-85-1"},
    {"ethyne", "74-86-2"},
    {"hydrogen cyanide", "74-90-8"},
    {"acetaldehyde", "75-07-0"},
    {"naphthalene", "91-20-3"},
    {"toluene", "108-88-3"},
    {"furan", "110-00-9"},
    {"propene", "115-07-1"},
    {"anthracene", "120-12-7"},
    {"carbon dioxide", "124-38-9"},
    {"carbon monoxide", "630-08-0"},
    {"hydrogen", "1333-74-0"},
    {"argon", "7440-37-1"},
    {"helium", "7440-59-7"},
    {"sulfur dioxide", "7446-09-5"},
    {"hydrogen chloride", "7647-01-0"},
    {"ammonia", "7664-41-7"},
    {"nitrogen", "7727-37-9"},
    {"water", "7732-18-5"},
    {"oxygen", "7782-44-7"},
    {"nitric oxide", "10102-43-9"},
    {"fullerene C60", "99685-96-8"},
}};

void addSubstances()
{
    QTest::addColumn<QString>("casNumber");
    for (const Substance& substance : substances)
        QTest::newRow(substance.name) << QString::fromLatin1(substance.casNumber);
}

/// Whether the check digit cannot see that a digit was replaced: the weighted sum changes by a
/// multiple of 10. Weights 1, 3, 7 and 9 share no factor with 10, so nothing escapes them; an even
/// weight misses a difference of 5, the weight 5 misses even differences. The check digit itself
/// (weight 0 here) always tells.
bool escapesTheCheck(qsizetype weight, int difference)
{
    if (weight == 5)
        return difference % 2 == 0;
    return weight != 0 && weight % 2 == 0 && std::abs(difference) == 5;
}

} // namespace

/// CAS registry numbers, and the address under which a structure drawing is asked for.
class TestCasNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registeredNumbersAreValid_data() { addSubstances(); }

    void registeredNumbersAreValid()
    {
        QFETCH(const QString, casNumber);
        QVERIFY(isValidCasNumber(casNumber));
    }

    void oneWrongDigitIsRefusedWhereverTheCheckDigitCanTell_data() { addSubstances(); }

    void oneWrongDigitIsRefusedWhereverTheCheckDigitCanTell()
    {
        QFETCH(const QString, casNumber);
        int refused = 0;
        qsizetype weight = 0;
        for (qsizetype position = casNumber.size() - 1; position >= 0; --position) {
            const QChar original = casNumber.at(position);
            if (original == u'-')
                continue;
            for (char wrong = '0'; wrong <= '9'; ++wrong) {
                const int difference = wrong - original.toLatin1();
                if (difference == 0)
                    continue;
                QString corrupted = casNumber;
                corrupted[position] = QLatin1Char(wrong);
                const bool escapes = escapesTheCheck(weight, difference);
                QVERIFY2(isValidCasNumber(corrupted) == escapes, qPrintable(corrupted));
                refused += escapes ? 0 : 1;
            }
            ++weight;
        }
        // At least the check digit and the weights 1 and 3 refuse all nine other digits.
        QVERIFY(refused >= 3 * 9);
    }

    void neighboursExchangedAreRefused()
    {
        QVERIFY(!isValidCasNumber(u"85-08-2"_s));
        QVERIFY(!isValidCasNumber(u"58-80-2"_s));
        QVERIFY(!isValidCasNumber(u"7723-18-5"_s));
    }

    void malformedNumbersAreRefused_data()
    {
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const char* text) {
            QTest::newRow(name) << QString::fromUtf8(text);
        };
        row("empty", "");
        row("blank", " ");
        row("word", "caffeine");
        row("wrong check digit", "58-08-3");
        row("one digit in the middle", "58-8-2");
        row("three digits in the middle", "58-008-2");
        row("two check digits", "58-08-02");
        row("no check digit", "58-08-");
        row("no first group", "-08-2");
        row("eight digits in front, right check digit", "10000000-00-0");
        row("no hyphens", "58082");
        row("one hyphen", "58-082");
        row("three hyphens", "5-8-08-2");
        row("en dashes", "58\u201308\u20132");
        row("minus signs", "58\u221208\u22122");
        row("non-breaking hyphens", "58\u201108\u20112");
        row("blank in front", " 58-08-2");
        row("blank behind", "58-08-2 ");
        row("blank inside", "58 -08-2");
        row("blanks for hyphens", "58 08 2");
        row("sign in front", "+58-08-2");
        row("letter for a digit", "58-O8-2");
        row("letter as check digit", "58-08-X");
        row("text in front", "CAS 58-08-2");
        row("text behind", "58-08-2 (caffeine)");
        row("two numbers", "58-08-2;71-43-2");
        row("second line", "58-08-2\n71-43-2");
        row("Arabic digits", "\u0665\u0668-\u0660\u0668-\u0662");
        row("fullwidth digits", "\uff15\uff18-\uff10\uff18-\uff12");
        row("markup", "<sup>58</sup>-08-2");
    }

    void malformedNumbersAreRefused()
    {
        QFETCH(const QString, text);
        QVERIFY(!isValidCasNumber(text));
    }

    void firstGroupHasOneToSevenDigits_data()
    {
        QTest::addColumn<QString>("casNumber");
        QTest::newRow("one digit, 1x3") << u"1-00-3"_s;
        QTest::newRow("two digits, 1x4") << u"10-00-4"_s;
        QTest::newRow("three digits, 1x5") << u"100-00-5"_s;
        QTest::newRow("four digits, 1x6") << u"1000-00-6"_s;
        QTest::newRow("five digits, 1x7") << u"10000-00-7"_s;
        QTest::newRow("six digits, 1x8") << u"100000-00-8"_s;
        QTest::newRow("seven digits, 1x9") << u"1000000-00-9"_s;
        QTest::newRow("largest sum, 405") << u"9999999-99-5"_s;
        QTest::newRow("sum divisible by ten") << u"50-00-0"_s;
        QTest::newRow("all zeros") << u"0-00-0"_s;
    }

    void firstGroupHasOneToSevenDigits()
    {
        QFETCH(const QString, casNumber);
        QVERIFY(isValidCasNumber(casNumber));
    }

    void addressAsksForTheColourDrawing_data()
    {
        QTest::addColumn<QString>("digits");
        QTest::addColumn<QByteArray>("address");
        QTest::newRow("caffeine")
            << u"58082"_s
            << QByteArray("https://webbook.nist.gov/cgi/cbook.cgi?Struct=C58082&Type=Color");
        QTest::newRow("water")
            << u"7732185"_s
            << QByteArray("https://webbook.nist.gov/cgi/cbook.cgi?Struct=C7732185&Type=Color");
        QTest::newRow("leading zero")
            << u"0000"_s
            << QByteArray("https://webbook.nist.gov/cgi/cbook.cgi?Struct=C0000&Type=Color");
    }

    void addressAsksForTheColourDrawing()
    {
        QFETCH(const QString, digits);
        QFETCH(const QByteArray, address);
        const QUrl url = StructureDownload::address(digits);
        QVERIFY(url.isValid());
        QCOMPARE(url.toEncoded(), address);
        QCOMPARE(url.scheme(), u"https"_s);
        QCOMPARE(url.path(), u"/cgi/cbook.cgi"_s);
    }
};

QTEST_MAIN(TestCasNumber)
#include "tst_casnumber.moc"
