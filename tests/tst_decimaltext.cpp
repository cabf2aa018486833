// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/decimaltext.h"

#include <QRandomGenerator>
#include <QTest>

#include <bit>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

QString fixed(double value, int decimals)
{
    QString text;
    DecimalText::appendFixed(text, value, decimals);
    return text;
}

QString significant(double value)
{
    QString text;
    DecimalText::appendSignificant(text, value);
    return text;
}

/// Numbers where rounding, the number of digits or the notation is about to change.
QList<double> awkwardNumbers()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QList<double> numbers{0.0,
                          infinity,
                          std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::max(),
                          std::numeric_limits<double>::min(),
                          std::numeric_limits<double>::denorm_min()};
    for (int exponent = -12; exponent <= 22; ++exponent) {
        const double power = std::pow(10.0, exponent);
        for (const double factor : {1.0, 0.5, 1.5, 2.5, 9.5, 9.9999949, 9.999995, 9.9999951,
                                    1.000005, 1.0000049, 1.2345675, 4.0000005}) {
            const double number = power * factor;
            numbers += {number, std::nextafter(number, 0.0), std::nextafter(number, infinity)};
        }
    }
    for (int sixteenths = 0; sixteenths < 400; ++sixteenths) // exact ties
        numbers += {sixteenths / 16.0, 1000 + sixteenths / 16.0, 99'900 + sixteenths / 2.0};
    const QList<double> positive = numbers;
    for (const double number : positive)
        numbers += -number;
    return numbers;
}

} // namespace

/// Numbers written quickly are written as the toolkit writes them.
class TestDecimalText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fixedNumbersAreAsTheToolkitWritesThem()
    {
        const QList<double> numbers = awkwardNumbers();
        for (const double number : numbers) {
            for (int decimals = 0; decimals <= 9; ++decimals)
                QCOMPARE(fixed(number, decimals), QString::number(number, 'f', decimals));
        }
    }

    void significantNumbersAreAsTheToolkitWritesThem()
    {
        const QList<double> numbers = awkwardNumbers();
        for (const double number : numbers)
            QCOMPARE(significant(number), QString::number(number, 'g', 6));
    }

    void randomNumbersAreAsTheToolkitWritesThem()
    {
        QRandomGenerator random(20261121U);
        for (int i = 0; i < 100'000; ++i) {
            const double measured = (random.generateDouble() - 0.2) * std::pow(10, i % 10 - 3);
            QCOMPARE(fixed(measured, 4), QString::number(measured, 'f', 4));
            QCOMPARE(fixed(measured, 2), QString::number(measured, 'f', 2));
            QCOMPARE(significant(measured), QString::number(measured, 'g', 6));
            const auto anything = std::bit_cast<double>(random.generate64());
            QCOMPARE(fixed(anything, 3), QString::number(anything, 'f', 3));
            QCOMPARE(significant(anything), QString::number(anything, 'g', 6));
        }
    }

    void textBeforeIsKept()
    {
        QString text = u"I = "_s;
        DecimalText::appendFixed(text, -1.25, 1);
        text += u"; "_s;
        DecimalText::appendSignificant(text, 21.5);
        QCOMPARE(text, u"I = -1.3; 21.5"_s);
    }
};

QTEST_MAIN(TestDecimalText)
#include "tst_decimaltext.moc"
