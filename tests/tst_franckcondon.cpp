// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/examples/franckcondon.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

using FranckCondon::Oscillator;

namespace {

// Huber and Herzberg (1979): cm^-1, cm^-1, angstrom.
constexpr Oscillator no{1904.20, 14.075, 1.15077};
constexpr Oscillator noCation{2376.42, 16.262, 1.06322};
constexpr Oscillator n2{2358.57, 14.324, 1.09768};
constexpr Oscillator n2Cation{2207.00, 16.10, 1.11642};
constexpr Oscillator o2{1580.19, 11.98, 1.20752};
constexpr Oscillator o2Cation{1904.77, 16.259, 1.1164};
constexpr Oscillator co{2169.81, 13.288, 1.12832};
constexpr Oscillator coCation{2214.24, 15.164, 1.11514};

constexpr double carbonMass = 12.0; // u
constexpr double nitrogenMass = 14.0030740;
constexpr double oxygenMass = 15.9949146;

/// hbar^2 / (2 h c), u angstrom^2 cm^-1
constexpr double kineticConstant = 16.857629;

constexpr int allLevels = 1000; // more than any of the molecules has

bool near(double value, double expected, double tolerance)
{
    return std::abs(value - expected) <= tolerance;
}

double sum(const QList<double>& values)
{
    return std::accumulate(values.cbegin(), values.cend(), 0.0);
}

/// The levels of the two strongest bands, the lower one first.
std::pair<int, int> twoStrongest(const QList<double>& factors)
{
    QList<int> levels(factors.size());
    std::iota(levels.begin(), levels.end(), 0);
    std::partial_sort(levels.begin(), levels.begin() + 2, levels.end(),
                      [&factors](int a, int b) { return factors.at(a) > factors.at(b); });
    return std::minmax(levels.at(0), levels.at(1));
}

/// The integral of the product of two wave functions of the state.
double overlap(const Oscillator& state, double mass, int level1, int level2)
{
    constexpr double step = 0.0005; // angstrom
    double integral = 0.0;
    for (int i = 0; i < 6000; ++i) {
        const double bondLength = i * step;
        integral += FranckCondon::waveFunction(state, mass, level1, bondLength) *
                    FranckCondon::waveFunction(state, mass, level2, bondLength) * step;
    }
    return integral;
}

} // namespace

/// The computation behind the spectra of the example entries.
class TestFranckCondon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reducedMassOfEqualMassesIsHalfOfOne()
    {
        QCOMPARE(FranckCondon::reducedMass(14.0, 14.0), 7.0);
        QCOMPARE(FranckCondon::reducedMass(12.0, 4.0), 3.0);
    }

    void naturalLengthAgreesWithTheTextbookFormula()
    {
        const double mass = FranckCondon::reducedMass(nitrogenMass, nitrogenMass);
        // hbar / (mu omega) is twice hbar^2 / (2 mu) over hbar omega.
        const double expected = std::sqrt(2.0 * kineticConstant / (mass * n2.frequency));
        QVERIFY(near(FranckCondon::naturalLength(n2, mass), expected, 1e-6));
    }

    void termValuesFollowTheConstants()
    {
        QCOMPARE(FranckCondon::termValue({1000.0, 10.0, 1.0}, 0), 497.5);
        QCOMPARE(FranckCondon::termValue({1000.0, 10.0, 1.0}, 1), 1477.5);
        QCOMPARE(FranckCondon::termValue({1000.0, 0.0, 1.0}, 3), 3500.0);
    }

    void morseOscillatorHasFiniteNumberOfLevels()
    {
        // lambda = 50, bound while v < lambda - 1/2
        QCOMPARE(FranckCondon::levelCount({1000.0, 10.0, 1.0}, allLevels), 50);
        QCOMPARE(FranckCondon::levelCount({1000.0, 10.0, 1.0}, 7), 7);
        QCOMPARE(FranckCondon::levelCount({1000.0, 0.0, 1.0}, 7), 7);
    }

    void waveFunctionsAreOrthonormal_data()
    {
        QTest::addColumn<double>("anharmonicity");
        QTest::newRow("Morse") << noCation.anharmonicity;
        QTest::newRow("harmonic") << 0.0;
    }

    void waveFunctionsAreOrthonormal()
    {
        QFETCH(const double, anharmonicity);
        const Oscillator state{noCation.frequency, anharmonicity, noCation.bondLength};
        const double mass = FranckCondon::reducedMass(nitrogenMass, oxygenMass);
        for (int i = 0; i < 10; ++i) {
            for (int j = 0; j <= i; ++j)
                QVERIFY(near(overlap(state, mass, i, j), i == j ? 1.0 : 0.0, 1e-8));
        }
    }

    /// The wave functions solve the Schroedinger equation of the Morse potential with the published
    /// constants, which no property of the formula itself could tell.
    void morseWaveFunctionSolvesItsEquation()
    {
        const double mass = FranckCondon::reducedMass(nitrogenMass, oxygenMass);
        // hbar^2 / (2 mu) in cm^-1 angstrom^2, a in angstrom^-1, well depth in cm^-1
        const double kinetic = kineticConstant / mass;
        const double a = std::sqrt(noCation.anharmonicity / kinetic);
        const double depth =
            noCation.frequency * noCation.frequency / (4.0 * noCation.anharmonicity);
        constexpr double h = 1e-3;
        for (int level = 0; level < 8; ++level) {
            const double energy = FranckCondon::termValue(noCation, level);
            for (double r = 0.95; r < 1.3; r += 0.01) {
                const auto psi = [mass, level](double length) {
                    return FranckCondon::waveFunction(noCation, mass, level, length);
                };
                const double second = (-psi(r - 2 * h) + 16.0 * psi(r - h) - 30.0 * psi(r) +
                                       16.0 * psi(r + h) - psi(r + 2 * h)) /
                                      (12.0 * h * h);
                const double stretch = 1.0 - std::exp(-a * (r - noCation.bondLength));
                const double residual =
                    -kinetic * second + (depth * stretch * stretch - energy) * psi(r);
                QVERIFY2(
                    near(residual, 0.0, 1e-5 * depth),
                    qPrintable(u"level %1, r %2, residual %3"_s.arg(level).arg(r).arg(residual)));
            }
        }
    }

    void factorsSumToOne_data()
    {
        QTest::addColumn<QList<double>>("factors");
        const double massOfNo = FranckCondon::reducedMass(nitrogenMass, oxygenMass);
        const double massOfCo = FranckCondon::reducedMass(carbonMass, oxygenMass);
        QTest::newRow("NO") << FranckCondon::factors(no, noCation, massOfNo, allLevels);
        QTest::newRow("N2") << FranckCondon::factors(n2, n2Cation, nitrogenMass / 2, allLevels);
        QTest::newRow("O2") << FranckCondon::factors(o2, o2Cation, oxygenMass / 2, allLevels);
        QTest::newRow("CO") << FranckCondon::factors(co, coCation, massOfCo, allLevels);
        const Oscillator harmonic{1904.20, 0.0, 1.15077};
        const Oscillator harmonicCation{2376.42, 0.0, 1.06322};
        QTest::newRow("harmonic") << FranckCondon::factors(harmonic, harmonicCation, massOfNo, 60);
    }

    void factorsSumToOne()
    {
        QFETCH(const QList<double>, factors);
        QVERIFY2(near(sum(factors), 1.0, 1e-6), qPrintable(QString::number(sum(factors), 'g', 12)));
        for (const double factor : factors)
            QVERIFY(factor >= 0.0);
    }

    void nitrogenIsAlmostAllInTheOriginBand()
    {
        const QList<double> factors = FranckCondon::factors(n2, n2Cation, nitrogenMass / 2, 5);
        QVERIFY(near(factors.at(0), 0.91, 0.02));
        QVERIFY(factors.at(1) < 0.1);
    }

    void strongestBandsOfNitricOxideAndOxygenAreTheSecondAndThird()
    {
        const double massOfNo = FranckCondon::reducedMass(nitrogenMass, oxygenMass);
        const std::pair<int, int> expected{1, 2};
        QVERIFY(twoStrongest(FranckCondon::factors(no, noCation, massOfNo, 20)) == expected);
        QVERIFY(twoStrongest(FranckCondon::factors(o2, o2Cation, oxygenMass / 2, 20)) == expected);
    }

    void identicalOscillatorsHaveTheOriginBandOnly_data()
    {
        QTest::addColumn<double>("anharmonicity");
        QTest::newRow("Morse") << no.anharmonicity;
        QTest::newRow("harmonic") << 0.0;
    }

    void identicalOscillatorsHaveTheOriginBandOnly()
    {
        QFETCH(const double, anharmonicity);
        const Oscillator state{no.frequency, anharmonicity, no.bondLength};
        const QList<double> factors = FranckCondon::factors(state, state, 7.4664, 12);
        QCOMPARE(factors.size(), 12);
        QVERIFY(near(factors.at(0), 1.0, 1e-9));
        for (int level = 1; level < factors.size(); ++level)
            QVERIFY(near(factors.at(level), 0.0, 1e-12));
    }

    void displacedHarmonicOscillatorsFollowPoisson_data()
    {
        QTest::addColumn<double>("anharmonicity");
        QTest::addColumn<double>("tolerance");
        QTest::newRow("harmonic") << 0.0 << 1e-10;
        QTest::newRow("almost harmonic Morse") << 0.01 << 2e-3;
    }

    /// S^v exp(-S) / v! with S = d^2 / 2 for a displacement of d natural lengths.
    void displacedHarmonicOscillatorsFollowPoisson()
    {
        QFETCH(const double, anharmonicity);
        QFETCH(const double, tolerance);
        constexpr double mass = 7.0;
        constexpr double displacement = 1.7;
        const Oscillator from{2000.0, anharmonicity, 1.1};
        const double length = FranckCondon::naturalLength(from, mass);
        const Oscillator to{2000.0, anharmonicity, 1.1 + displacement * length};

        const QList<double> factors = FranckCondon::factors(from, to, mass, 15);
        constexpr double s = displacement * displacement / 2.0;
        double expected = std::exp(-s);
        for (int level = 0; level < factors.size(); ++level) {
            QVERIFY(near(factors.at(level), expected, tolerance));
            expected *= s / (level + 1);
        }
    }

    /// 2 sqrt(w1 w2) / (w1 + w2) for the origin band, and no odd levels, when only the frequency
    /// changes.
    void changedFrequencyAloneExcitesEvenLevels()
    {
        const QList<double> factors =
            FranckCondon::factors({1000.0, 0.0, 1.2}, {2500.0, 0.0, 1.2}, 8.0, 8);
        QVERIFY(near(factors.at(0), 2.0 * std::sqrt(1000.0 * 2500.0) / 3500.0, 1e-10));
        for (const int odd : {1, 3, 5, 7})
            QVERIFY(near(factors.at(odd), 0.0, 1e-12));
        QVERIFY(factors.at(2) > 0.01);
    }

    void bandsStartAtTheIonisationEnergy()
    {
        QCOMPARE(FranckCondon::bandEnergy(noCation, 9.2642, 0), 9.2642);
        // (2376.42 - 2 * 16.262) cm^-1
        QVERIFY(near(FranckCondon::bandEnergy(noCation, 9.2642, 1), 9.2642 + 0.290606, 1e-5));
    }

    void strongestLineIsScaledAndWeakOnesAreDropped()
    {
        const QList<QPointF> lines =
            FranckCondon::lineSpectrum(n2, n2Cation, nitrogenMass / 2, 15.581);
        QVERIFY(lines.size() >= 3);
        QVERIFY(lines.size() <= 6);
        QCOMPARE(lines.constFirst(), QPointF(15.581, 1000.0));
        for (const QPointF& line : lines)
            QVERIFY(line.y() >= 0.1);
    }

    void convolutedLineIsGaussianOfTheWidth()
    {
        const QList<QPointF> curve = FranckCondon::convoluted({QPointF(10.0, 250.0)}, 0.020, 0.002);
        QCOMPARE(curve.size(), 61);
        QVERIFY(near(curve.constFirst().x(), 9.94, 1e-9));
        QVERIFY(near(curve.constLast().x(), 10.06, 1e-9));
        QCOMPARE(curve.at(30).y(), 1000.0);
        QVERIFY(near(curve.at(25).y(), 500.0, 1e-6));
        QVERIFY(near(curve.at(35).y(), 500.0, 1e-6));
        QVERIFY(curve.constFirst().y() < 1e-3);
    }

    void nothingConvolutedIsNothing()
    {
        QVERIFY(FranckCondon::convoluted({}, 0.020, 0.002).isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestFranckCondon)
#include "tst_franckcondon.moc"
