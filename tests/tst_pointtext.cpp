// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointtext.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using MaybePoint = std::optional<QPointF>;

constexpr double infinity = std::numeric_limits<double>::infinity();

bool sameNumber(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) ||
           std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b);
}

bool samePoint(const MaybePoint& a, const MaybePoint& b)
{
    if (!a || !b)
        return a.has_value() == b.has_value();
    return sameNumber(a->x(), b->x()) && sameNumber(a->y(), b->y());
}

/// The point that the quick way finds in a text of one line.
MaybePoint quickPoint(QStringView line)
{
    const QList<QPointF> points = PointText::parse(line);
    return points.isEmpty() ? MaybePoint() : points.constFirst();
}

/// The point of two numbers about which the versions of the toolkit differ.
MaybePoint pointOf(const QString& energy, const QString& intensity)
{
    bool energyIsNumber = false;
    bool intensityIsNumber = false;
    const QPointF point(energy.toDouble(&energyIsNumber), intensity.toDouble(&intensityIsNumber));
    return energyIsNumber && intensityIsNumber ? MaybePoint(point) : MaybePoint();
}

/// The number of points that the defining way finds in a text of any number of lines.
qsizetype countByExpression(const QString& text)
{
    const QStringList lines = text.split(u'\n');
    return std::count_if(lines.begin(), lines.end(), [](const QString& line) {
        return PointText::parseLineByExpression(line).has_value();
    });
}

QString describe(const MaybePoint& point)
{
    if (!point)
        return u"no point"_s;
    return u"(%1, %2)"_s.arg(point->x(), 0, 'g', 17).arg(point->y(), 0, 'g', 17);
}

QString oneOf(QRandomGenerator& random, const QStringList& choices)
{
    return choices.at(random.bounded(static_cast<int>(choices.size())));
}

QString someDigits(QRandomGenerator& random, int most)
{
    QString digits;
    for (int left = random.bounded(most + 1); left > 0; --left)
        digits += QChar(u'0' + random.bounded(10));
    return digits;
}

QString someSeparator(QRandomGenerator& random)
{
    static const QStringList separators{
        u" "_s,  u" "_s,  u"\t"_s,     u","_s,      u";"_s,      u"; "_s,     u", "_s,
        u"  "_s, u"\r"_s, u"\v"_s,     u"\f"_s,     u"\n"_s,     u" ,;\t "_s, u"\u00a0"_s,
        u""_s,   u":"_s,  u"\u2028"_s, u"\u2003"_s, u"\u0085"_s, u"\ufeff"_s, u"\u3000"_s};
    return oneOf(random, separators);
}

/// Something like a number: now and then one that no double can hold, or that is spelt oddly.
QString someNumber(QRandomGenerator& random)
{
    static const QStringList oddities =
        (u"inf|-inf|+inf|INF|infinity|nan|NaN|-nan|nan(1)|1.e5|.5|1.|+1|-0|-0.0e5|"
         u"--1|+-1|1e|1e+|e5|.|-|+|-.|1e400|-1e400|1e-400|4.9e-324|2e-324|1e-310|"
         u"1.7976931348623157e308|1.7976931348623159e308|0x10|0X1p4|1e22|1e23|1e-22|"
         u"1e-23|9007199254740992|9007199254740993|9007199254740993e1|"
         u"9007199254740992e22|0e9999|0e99999999999|1e0000005|1e2147483648|"
         u"1e4294967301|00000000000000000000001|0.00000000000000000000000001|"
         u"123456789012345678|1234567890123456789|18446744073709551616|1 000|1_000|"
         u"1'000|5f|5d0|1e5.0|1.2.3|\u22125|1e\u22125|\u0661\u0662|\uff11|\u00b5|"
         u"2.2250738585072011e-308|2.2250738585072014e-308|8.41e21|9.5e-5"_s)
            .split(u'|');
    if (random.bounded(4) == 0)
        return oneOf(random, oddities);

    QString number = oneOf(random, {u""_s, u""_s, u""_s, u"-"_s, u"+"_s});
    number += someDigits(random, random.bounded(3) == 0 ? 25 : 5);
    if (random.bounded(3) != 0)
        number += u'.' + someDigits(random, random.bounded(3) == 0 ? 25 : 6);
    if (random.bounded(3) == 0) {
        number += oneOf(random, {u"e"_s, u"E"_s}) + oneOf(random, {u""_s, u"-"_s, u"+"_s});
        number += QString::number(random.bounded(random.bounded(2) == 0 ? 30 : 420));
    }
    return number;
}

QString lineOfNumbers(QRandomGenerator& random)
{
    const int parts = random.bounded(8) == 0 ? random.bounded(4) : 2;
    QString line = random.bounded(4) == 0 ? someSeparator(random) : QString();
    for (int i = 0; i < parts; ++i) {
        line += someNumber(random);
        if (i + 1 < parts || random.bounded(4) == 0)
            line += someSeparator(random);
    }
    return line;
}

QString lineOfAnything(QRandomGenerator& random)
{
    static const QString characters =
        u"00112233445566778899....eE+-+-,,;;  \t\r\v\f\u00a0\u2212\u2028\u2029\u0085\u00e9xXinfa#_'"_s +
        QChar(0) + QChar(0xd800); // a lone half of a surrogate pair
    QString line;
    for (int left = random.bounded(16); left > 0; --left)
        line += characters.at(random.bounded(static_cast<int>(characters.size())));
    return line;
}

} // namespace

Q_DECLARE_METATYPE(MaybePoint)

/// Points typed or pasted as text, and the text in which the editor writes points itself.
class TestPointText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineIsOnePairOfNumbers_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<MaybePoint>("point");
        const MaybePoint usual = QPointF(10.5, 200);
        const MaybePoint none;

        QTest::newRow("blank") << u"10.5 200"_s << usual;
        QTest::newRow("tab") << u"10.5\t200"_s << usual;
        QTest::newRow("semicolon") << u"10.5;200"_s << usual;
        QTest::newRow("comma and blank") << u"10.5, 200"_s << usual;
        QTest::newRow("comma") << u"10.5,200"_s << usual;
        QTest::newRow("two semicolons, blanks around") << u"  10.5;;200  "_s << usual;
        QTest::newRow("separators of all kinds") << u";\t10.5 ,;\t, 200,\r"_s << usual;
        QTest::newRow("vertical tab and form feed") << u"\f10.5\v200"_s << usual;
        QTest::newRow("as written after loading") << u"10.5; 200"_s << usual;

        QTest::newRow("integers") << u"3 1"_s << MaybePoint(QPointF(3, 1));
        QTest::newRow("exponents") << u"1e1 2E-3"_s << MaybePoint(QPointF(10, 0.002));
        QTest::newRow("signed exponent") << u"1e+1 -2.5e0"_s << MaybePoint(QPointF(10, -2.5));
        QTest::newRow("signs") << u"+10.5 -200"_s << MaybePoint(QPointF(10.5, -200));
        QTest::newRow("bare dots") << u".5 1."_s << MaybePoint(QPointF(0.5, 1));
        QTest::newRow("dot before the exponent") << u"1.e5 .5e1"_s << MaybePoint(QPointF(1e5, 5));
        QTest::newRow("leading zeros") << u"0010.50 000"_s << MaybePoint(QPointF(10.5, 0));
        QTest::newRow("minus zero") << u"-0 0"_s << MaybePoint(QPointF(-0.0, 0));
        QTest::newRow("17 digits") << u"0.10000000000000001 12345678901234567"_s
                                   << MaybePoint(QPointF(0.1, 12345678901234568.0));
        QTest::newRow("smallest double")
            << u"4.9e-324 1"_s << MaybePoint(QPointF(4.9406564584124654e-324, 1));
        QTest::newRow("largest double")
            << u"1.7976931348623157e308 1"_s << MaybePoint(QPointF(1.7976931348623157e308, 1));
        QTest::newRow("infinity") << u"inf 1"_s << MaybePoint(QPointF(infinity, 1));
        QTest::newRow("typographic minus, as the toolkit takes it")
            << u"10 \u22125"_s << pointOf(u"10"_s, u"\u22125"_s);

        QTest::newRow("nothing") << QString() << none;
        QTest::newRow("blanks only") << u"  \t "_s << none;
        QTest::newRow("separators only") << u",;"_s << none;
        QTest::newRow("one part") << u"10.5"_s << none;
        QTest::newRow("three parts") << u"10.5 200 3"_s << none;
        QTest::newRow("three parts, the last a word") << u"10.5 200 abc"_s << none;
        QTest::newRow("header") << u"Energy Intensity"_s << none;
        QTest::newRow("word behind a number") << u"10.5 abc"_s << none;
        QTest::newRow("word before a number") << u"abc 10.5"_s << none;
        QTest::newRow("unit glued on") << u"10.5eV 200"_s << none;
        QTest::newRow("decimal commas") << u"1,5 2,0"_s << none;
        QTest::newRow("group separators") << u"10 1,000"_s << none;
        QTest::newRow("two dots") << u"1.5.2 2"_s << none;
        QTest::newRow("two signs") << u"--1 2"_s << none;
        QTest::newRow("unfinished exponent") << u"1e 2"_s << none;
        QTest::newRow("too large for a double") << u"1e400 2"_s << none;
        QTest::newRow("too small for a double") << u"1e-400 2"_s << none;
        QTest::newRow("hexadecimal") << u"0x10 2"_s << none;
        QTest::newRow("comment") << u"# 10.5 200"_s << none;
        QTest::newRow("colon") << u"10.5:200"_s << none;
        QTest::newRow("no-break space is no separator") << u"10.5\u00a0200"_s << none;
        QTest::newRow("line separator is no separator") << u"10.5\u2028200"_s << none;
    }
    void lineIsOnePairOfNumbers()
    {
        QFETCH(QString, line);
        QFETCH(MaybePoint, point);
        const MaybePoint quick = quickPoint(line);
        QVERIFY2(samePoint(quick, point), qPrintable(describe(quick)));
        const MaybePoint byExpression = PointText::parseLineByExpression(line);
        QVERIFY2(samePoint(byExpression, point), qPrintable(describe(byExpression)));
        QCOMPARE(PointText::parse(line).size(), point ? 1 : 0);
        const MaybePoint ofTheLine = PointText::pointOf(line);
        QVERIFY2(samePoint(ofTheLine, point), qPrintable(describe(ofTheLine)));
    }

    void everyLineIsShownWithItsPlace_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("nothing") << QString() << QStringList{u"0:"_s};
        QTest::newRow("one") << u"1 2"_s << QStringList{u"0:1 2*"_s};
        QTest::newRow("last one empty") << u"1 2\n"_s << QStringList{u"0:1 2*"_s, u"1:"_s};
        QTest::newRow("only line feeds") << u"\n\n"_s << QStringList{u"0:"_s, u"1:"_s, u"2:"_s};
        QTest::newRow("all kinds")
            << u"eV\n1 2\n\n1 2 3\n 0x1 2 \n1.00000000000000000000 2 \n5"_s
            << QStringList{u"0:eV"_s,    u"1:1 2*"_s,    u"2:"_s,
                           u"3:1 2 3"_s, u"4: 0x1 2 "_s, u"5:1.00000000000000000000 2 *"_s,
                           u"6:5"_s};
    }
    void everyLineIsShownWithItsPlace()
    {
        QFETCH(QString, text);
        QStringList lines;
        PointText::forEachLine(text, [&](const PointText::Line& line) {
            lines += QString::number(line.number) + u':' + text.mid(line.position, line.length) +
                     (line.point ? u"*"_s : QString());
        });
        QTEST(lines, "lines");
    }

    void linesAreCounted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("points");
        QTest::addColumn<int>("others");
        QTest::addColumn<int>("first");
        QTest::newRow("nothing") << QString() << 0 << 0 << 0;
        QTest::newRow("points only") << u"1 2\n3 4"_s << 2 << 0 << 0;
        QTest::newRow("blank lines are neither")
            << u"\n1 2\n \t\n\u00a0\u2003\r\n3 4\n\n"_s << 2 << 0 << 0;
        QTest::newRow("heading") << u"E I\n1 2\n3 4"_s << 2 << 1 << 1;
        QTest::newRow("first of several") << u"\n1 2\n1,5 2,0\n3 4\n#"_s << 2 << 2 << 3;
        QTest::newRow("separators only are a line") << u"1 2\n,;\n"_s << 1 << 1 << 2;
    }
    void linesAreCounted()
    {
        QFETCH(QString, text);
        const PointText::Census census = PointText::census(text);
        QTEST(static_cast<int>(census.points), "points");
        QTEST(static_cast<int>(census.otherLines), "others");
        QTEST(static_cast<int>(census.firstOtherLine), "first");
    }

    void partOfALongerTextIsReadAlone()
    {
        const QString text = u"10.5 2001.5e3"_s;
        QCOMPARE(quickPoint(QStringView(text).first(8)), QPointF(10.5, 200));
        QCOMPARE(quickPoint(QStringView(text).first(7)), QPointF(10.5, 20));
        QVERIFY(!quickPoint(QStringView(text).first(5)));
    }

    void linesKeepTheirOrderAndDuplicates()
    {
        const QList<QPointF> points{{3, 1}, {1, 2}, {3, 1}};
        QCOMPARE(PointText::parse(u"E / eV, I\n3 1\n1 2\n \n3 1\n1 2 3"), points);
    }

    void numbersOfTwoLinesAreNoPoint()
    {
        QCOMPARE(PointText::parse(u"1\n2\n3\n4 \n 5,\n;6"), QList<QPointF>());
        const QList<QPointF> between{{3, 4}};
        QCOMPARE(PointText::parse(u"1 \n2\n3 4\n5"), between);
    }

    void oneUnusualLineChangesNoOther()
    {
        const QList<QPointF> points{{1, 2}, {0.1, 3}, {4, 5}};
        QCOMPARE(PointText::parse(u"1 2\n0.1000000000000000000001 3\n0x10 3\n\n4 5\n"), points);
    }

    void noUsableLineGivesNoPoints()
    {
        QCOMPARE(PointText::parse({}), QList<QPointF>());
        QCOMPARE(PointText::parse(u"eV counts\n10\n\n"), QList<QPointF>());
    }

    void emptyLinesAreDroppedAndBlankOnesKept_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("kept");
        QTest::newRow("nothing") << QString() << QString();
        QTest::newRow("only line feeds") << u"\n\n\n"_s << QString();
        QTest::newRow("none empty") << u"1 2\n3 4"_s << u"1 2\n3 4"_s;
        QTest::newRow("everywhere") << u"\n\n1 2\n\n\n3 4\n"_s << u"1 2\n3 4"_s;
        QTest::newRow("blanks") << u" \n\n\t\n"_s << u" \n\t"_s;
        QTest::newRow("carriage returns") << u"1 2\r\n\r\n3 4"_s << u"1 2\r\n\r\n3 4"_s;
    }
    void emptyLinesAreDroppedAndBlankOnesKept()
    {
        QFETCH(QString, text);
        QTEST(PointText::withoutEmptyLines(text), "kept");
    }

    void quickReadingAgreesWithTheSeparatorExpression_data()
    {
        QTest::addColumn<quint32>("seed");
        QTest::addColumn<bool>("numbers");
        QTest::newRow("numbers") << 20260101U << true;
        QTest::newRow("more numbers") << 20260102U << true;
        QTest::newRow("anything") << 20260103U << false;
    }
    void quickReadingAgreesWithTheSeparatorExpression()
    {
        QFETCH(quint32, seed);
        QFETCH(bool, numbers);
        QRandomGenerator random(seed);
        int pointCount = 0;
        constexpr int lineCount = 40'000;
        for (int i = 0; i < lineCount; ++i) {
            const QString text = numbers ? lineOfNumbers(random) : lineOfAnything(random);
            // Some of the separators end the line: then it is the last line that counts here.
            const QString line = text.section(u'\n', -1);
            const QList<QPointF> points = PointText::parse(text);
            QCOMPARE(points.size(), countByExpression(text));
            QCOMPARE(PointText::census(text).points, points.size());
            const MaybePoint quick = quickPoint(line);
            const MaybePoint byExpression = PointText::parseLineByExpression(line);
            QVERIFY(samePoint(PointText::pointOf(line), byExpression));
            if (!samePoint(quick, byExpression)) {
                const QString problem =
                    u"seed %1, line %2, \"%3\": %4 is not %5"_s.arg(seed).arg(i).arg(
                        line.toHtmlEscaped(), describe(quick), describe(byExpression));
                QFAIL(qPrintable(problem));
            }
            pointCount += quick ? 1 : 0;
        }
        // Both ways agreeing on nothing but unusable lines would prove little.
        const int enough = numbers ? lineCount / 4 : lineCount / 200;
        QVERIFY2(pointCount > enough && pointCount < lineCount - enough,
                 qPrintable(QString::number(pointCount)));
    }

    void normalizedLinesHaveFourAndTwoDecimals()
    {
        QCOMPARE(PointText::normalizedText({{10, 500},
                                            {-0.12346, 1000},
                                            {12.345678, -0.0051},
                                            {1e8, 12345678.9},
                                            {1e-9, 0.001}}),
                 u"10.0000 500.00\n"
                 "-0.1235 1000.00\n"
                 "12.3457 -0.01\n"
                 "100000000.0000 12345678.90\n"
                 "0.0000 0.00"_s);
        QCOMPARE(PointText::normalizedText({}), QString());
    }

    void resampledLinesHaveThreeAndTwoDecimals()
    {
        QCOMPARE(PointText::resampledText({{10.001, 1}, {-12.345678, 0.126}, {1234567, -999.999}}),
                 u"10.001 1.00\n-12.346 0.13\n1234567.000 -1000.00"_s);
        QCOMPARE(PointText::resampledText({}), QString());
    }

    void loadedLineHasSixSignificantDigits_data()
    {
        QTest::addColumn<double>("energy");
        QTest::addColumn<double>("intensity");
        QTest::addColumn<QString>("line");
        QTest::newRow("short") << 1.0 << 2.0 << u"1; 2"_s;
        QTest::newRow("rounded") << 12.34567 << 0.123456789 << u"12.3457; 0.123457"_s;
        QTest::newRow("no trailing zeros") << 10.5 << 100000.0 << u"10.5; 100000"_s;
        QTest::newRow("large") << 999999.0 << 1234567.0 << u"999999; 1.23457e+06"_s;
        QTest::newRow("small") << 0.0001 << 0.00001 << u"0.0001; 1e-05"_s;
        QTest::newRow("negative") << -12.5 << -1e-300 << u"-12.5; -1e-300"_s;
        QTest::newRow("zero") << 0.0 << 0.0 << u"0; 0"_s;
    }
    void loadedLineHasSixSignificantDigits()
    {
        QFETCH(double, energy);
        QFETCH(double, intensity);
        QTEST(PointText::loadedText({{energy, intensity}}), "line");
    }

    void writtenLinesAreReadBack()
    {
        const QList<QPointF> points{{10.125, -2.5}, {11, 1000}};
        QCOMPARE(PointText::parse(PointText::normalizedText(points)), points);
        QCOMPARE(PointText::parse(PointText::resampledText(points)), points);
        QCOMPARE(PointText::parse(PointText::loadedText(points)), points);
        const QList<QPointF> extreme{{1e-05, 1.5e+30}, {1, 2}};
        QCOMPARE(PointText::parse(PointText::loadedText(extreme)), extreme);
    }
};

QTEST_MAIN(TestPointText)
#include "tst_pointtext.moc"
