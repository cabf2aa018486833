// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/significantdigits.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

namespace {

/// What the editor makes of a number when it loads it.
double rounded(double value)
{
    return QString::number(value, 'g', 6).toDouble();
}

} // namespace

/// Numbers that the editor leaves as they are, told from those that it rounds.
class TestSignificantDigits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void digitsAreCounted_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("few");
        const auto add = [](const char* text, bool few) {
            QTest::newRow(text) << QByteArray(text).toDouble() << few;
        };
        for (const char* text : {"0", "-0", "1", "8.001", "123456", "-1234560", "1e-07", "0.1",
                                 "999999", "1e5", "1e6", "123456e300", "1.23456e-300", "5e-324"})
            add(text, true);
        for (const char* text : {"1234567", "8.0000001", "-0.1234567", "99999.95", "1000001",
                                 "0.30000000000000004", "1.234567e-300", "1234567e20"})
            add(text, false);
    }

    void digitsAreCounted()
    {
        QFETCH(const double, value);
        QFETCH(const bool, few);
        QCOMPARE(SignificantDigits::areAtMostSix(value), few);
    }

    void verdictIsThatOfRounding()
    {
        std::mt19937_64 random(1); // NOLINT(cert-msc51-cpp): the same numbers each time
        for (int round = 0; round < 100'000; ++round) {
            const auto digits = double(random() % 10'000'000);
            const double value = digits * std::pow(10.0, int(random() % 40) - 25);
            const double few = rounded(value);
            for (const double number : {value, few, std::nextafter(few, 1e300)}) {
                QCOMPARE(SignificantDigits::areAtMostSix(number), rounded(number) == number);
                QCOMPARE(SignificantDigits::areAtMostSix(-number), rounded(number) == number);
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestSignificantDigits)
#include "tst_significantdigits.moc"
