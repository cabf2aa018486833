// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumpoints.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using Points = QList<QPointF>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

bool sameNumber(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) ||
           std::bit_cast<quint64>(a) == std::bit_cast<quint64>(b);
}

bool samePoints(const Points& a, const Points& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](QPointF p, QPointF q) {
        return sameNumber(p.x(), q.x()) && sameNumber(p.y(), q.y());
    });
}

QString describe(const Points& points)
{
    QStringList texts;
    for (const QPointF& point : points)
        texts += u"(%1, %2)"_s.arg(point.x(), 0, 'g', 17).arg(point.y(), 0, 'g', 17);
    return texts.join(u' ');
}

/// Resampling as it is defined: for each grid energy the points are searched anew, from the second
/// one on, for the first that is not below it.
Points resampledByScan(const Points& points)
{
    const double h = 0.001;
    const double s = points.first().x() + h;
    const int k = static_cast<int>(((points.last().x() - h) - s) / h);
    Points result;
    for (int i = 0; i <= k; ++i) {
        const double g = i * h + s;
        for (qsizetype j = 1; j < points.size(); ++j) {
            const QPointF a = points.at(j - 1);
            const QPointF b = points.at(j);
            if (b.x() >= g) {
                const double y = (b.y() - a.y()) * ((g - a.x()) / (b.x() - a.x())) + a.y();
                result.append(QPointF(g, y));
                break;
            }
        }
    }
    return result;
}

enum class Order { Sorted, Unsorted, Duplicates, WithNotANumber };

/// Points within a few dozen meV, so that the scan stays short.
Points randomPoints(QRandomGenerator& random, Order order)
{
    Points points;
    const int count = 1 + random.bounded(30);
    const double span = random.bounded(2) == 0 ? 0.02 : 0.2;
    for (int i = 0; i < count; ++i) {
        double x = 10 + random.bounded(span);
        if (order == Order::Duplicates)
            x = 10 + random.bounded(20) * 0.001;
        points.append(QPointF(x, random.bounded(2000.0) - 1000));
    }
    if (order == Order::Sorted || (order == Order::Duplicates && random.bounded(2) == 0)) {
        std::sort(points.begin(), points.end(), [](QPointF a, QPointF b) { return a.x() < b.x(); });
    }
    if (order == Order::WithNotANumber) {
        // The first and the last energy define the grid.
        for (qsizetype i = 1; i + 1 < points.size(); ++i) {
            if (random.bounded(4) == 0)
                points[i].setX(random.bounded(2) == 0 ? notANumber : infinity);
            if (random.bounded(4) == 0)
                points[i].setY(random.bounded(2) == 0 ? notANumber : -infinity);
        }
    }
    return points;
}

} // namespace

Q_DECLARE_METATYPE(Order)

/// What is computed from the points of a spectrum.
class TestSpectrumPoints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void normalizingScalesTheLargestIntensityTo1000_data()
    {
        QTest::addColumn<Points>("points");
        QTest::addColumn<Points>("scaled");
        QTest::newRow("usual") << Points{{10, 5}, {11, 10}, {12, 2.5}}
                               << Points{{10, 500}, {11, 1000}, {12, 250}};
        QTest::newRow("negative maximum flips the signs")
            << Points{{10, -2}, {11, -4}} << Points{{10, 1000}, {11, 2000}};
        QTest::newRow("signed, not by magnitude")
            << Points{{10, 1}, {11, -4}} << Points{{10, 1000}, {11, -4000}};
        QTest::newRow("single point") << Points{{7, 0.1}} << Points{{7, 1000}};
        QTest::newRow("order and duplicates stay")
            << Points{{3, 1}, {1, 2}, {3, 1}} << Points{{3, 500}, {1, 1000}, {3, 500}};
        QTest::newRow("not a number is passed over")
            << Points{{1, 1}, {2, notANumber}, {3, 4}}
            << Points{{1, 250}, {2, notANumber}, {3, 1000}};
        QTest::newRow("not a number comes first")
            << Points{{1, notANumber}, {2, 4}} << Points{{1, notANumber}, {2, notANumber}};
        QTest::newRow("energies are untouched") << Points{{notANumber, 1}, {infinity, 2}}
                                                << Points{{notANumber, 500}, {infinity, 1000}};
        QTest::newRow("divides first")
            << Points{{1, 1e306}, {2, 5e305}} << Points{{1, 1000}, {2, 500}};
        QTest::newRow("divides first, then multiplies")
            << Points{{1, 9}, {2, 1}} << Points{{1, 1000}, {2, 111.1111111111111}};
        QTest::newRow("infinite maximum")
            << Points{{1, infinity}, {2, 4}} << Points{{1, notANumber}, {2, 0}};
    }
    void normalizingScalesTheLargestIntensityTo1000()
    {
        QFETCH(Points, points);
        QFETCH(Points, scaled);
        const auto result = SpectrumPoints::normalized(points);
        QVERIFY(result);
        QVERIFY2(samePoints(*result, scaled), qPrintable(describe(*result)));
    }

    void nothingToNormalizeWithoutAnIntensity()
    {
        QVERIFY(!SpectrumPoints::normalized({}));
        QVERIFY(!SpectrumPoints::normalized({{10, 0}, {11, 0}}));
        QVERIFY(!SpectrumPoints::normalized({{10, -0.0}}));
        QVERIFY(!SpectrumPoints::normalized({{10, -3}, {11, 0}, {12, -1}}));
    }

    void resamplingInterpolatesOnAGridOfOneMilliElectronVolt()
    {
        const auto result = SpectrumPoints::resampled({{10.000, 0}, {10.004, 4}});
        QVERIFY(result);
        QCOMPARE(*result, (Points{{10.001, 1}, {10.002, 2}, {10.003, 3}}));
    }

    void resamplingTwoPointsOneStepApartGivesTheSecond()
    {
        const auto result = SpectrumPoints::resampled({{10, 1}, {10.001, 2}});
        QVERIFY(result);
        QCOMPARE(*result, (Points{{10.001, 2}}));
    }

    void resamplingThinsFineAndFillsCoarseSpectra()
    {
        Points fine;
        for (int i = 0; i <= 1000; ++i)
            fine.append(QPointF(10 + i * 0.0001, i));
        const auto thinned = SpectrumPoints::resampled(fine);
        QVERIFY(thinned);
        QCOMPARE(thinned->size(), 99);
        const auto filled = SpectrumPoints::resampled({{10, 0}, {20, 10}});
        QVERIFY(filled);
        QCOMPARE(filled->size(), 9999);
        QCOMPARE(filled->first(), QPointF(10.001, 0.001));
        QCOMPARE(filled->last(), QPointF(19.999, 9.999));
    }

    void resamplingAShortOrFallingSpectrumLeavesNothing_data()
    {
        QTest::addColumn<Points>("points");
        QTest::newRow("span below 1 meV") << Points{{10, 1}, {10.0005, 2}};
        QTest::newRow("single point") << Points{{10, 1}};
        QTest::newRow("single huge energy") << Points{{1e300, 1}};
        QTest::newRow("from high to low") << Points{{12, 1}, {11, 2}, {10, 3}};
        QTest::newRow("ends where it began") << Points{{10, 1}, {12, 2}, {10, 3}};
        QTest::newRow("far below") << Points{{1e308, 1}, {-1e308, 2}};
        QTest::newRow("starts at infinity") << Points{{infinity, 1}, {10, 2}};
        QTest::newRow("ends at minus infinity") << Points{{10, 1}, {-infinity, 2}};
    }
    void resamplingAShortOrFallingSpectrumLeavesNothing()
    {
        QFETCH(Points, points);
        const auto result = SpectrumPoints::resampled(points);
        QVERIFY(result);
        QVERIFY2(result->isEmpty(), qPrintable(describe(*result)));
    }

    void resamplingTakesUnsortedPointsInTheirOrder()
    {
        // 10.0015 is reached first by the second point, and the fourth is never looked at for it.
        const auto result = SpectrumPoints::resampled(
            {{10, 0}, {10.0025, 25}, {10.0005, 5}, {10.0045, 45}, {10.004, 40}});
        QVERIFY(result);
        QCOMPARE(*result, (Points{{10.001, 10}, {10.002, 20}, {10.003, 30}}));
    }

    void resamplingWorksWhereOneStepIsLessThanTheNumbersTellApart()
    {
        const auto result = SpectrumPoints::resampled({{1e15, 1}, {1e15 + 1, 3}});
        QVERIFY(result);
        QVERIFY(samePoints(*result, resampledByScan({{1e15, 1}, {1e15 + 1, 3}})));
    }

    void resamplingEqualsTheScanFromTheStart_data()
    {
        QTest::addColumn<quint32>("seed");
        QTest::addColumn<Order>("order");
        QTest::newRow("sorted") << 1U << Order::Sorted;
        QTest::newRow("unsorted") << 2U << Order::Unsorted;
        QTest::newRow("duplicates") << 3U << Order::Duplicates;
        QTest::newRow("not a number") << 4U << Order::WithNotANumber;
    }
    void resamplingEqualsTheScanFromTheStart()
    {
        QFETCH(quint32, seed);
        QFETCH(Order, order);
        QRandomGenerator random(seed);
        qsizetype gridValues = 0;
        for (int i = 0; i < 2000; ++i) {
            const Points points = randomPoints(random, order);
            const auto result = SpectrumPoints::resampled(points);
            QVERIFY2(result, qPrintable(describe(points)));
            const Points expected = resampledByScan(points);
            if (!samePoints(*result, expected)) {
                const QString problem = u"seed %1, points %2\ngave %3\nnot  %4"_s.arg(seed).arg(
                    describe(points), describe(*result), describe(expected));
                QFAIL(qPrintable(problem));
            }
            gridValues += expected.size();
        }
        QVERIFY2(gridValues > 10'000, qPrintable(QString::number(gridValues)));
    }

    void resamplingLeavesPointsAloneWhenThereIsNoGrid_data()
    {
        QTest::addColumn<Points>("points");
        QTest::newRow("no points") << Points{};
        QTest::newRow("first is not a number") << Points{{notANumber, 1}, {10, 2}};
        QTest::newRow("last is not a number") << Points{{10, 1}, {notANumber, 2}};
        QTest::newRow("only not a number") << Points{{notANumber, notANumber}};
        QTest::newRow("infinity to infinity") << Points{{infinity, 1}, {infinity, 2}};
        QTest::newRow("from minus infinity") << Points{{-infinity, 1}, {10, 2}};
        QTest::newRow("to infinity") << Points{{10, 1}, {infinity, 2}};
        QTest::newRow("whole range of doubles") << Points{{-1e308, 1}, {1e308, 2}};
        QTest::newRow("more than 32 bits count") << Points{{0, 1}, {1e7, 2}};
        QTest::newRow("more than memory holds") << Points{{0, 1}, {2e6, 2}};
    }
    void resamplingLeavesPointsAloneWhenThereIsNoGrid()
    {
        QFETCH(Points, points);
        QVERIFY(!SpectrumPoints::resampled(points));
    }

    void sticksRiseFromTheBaseLine_data()
    {
        QTest::addColumn<Points>("points");
        QTest::addColumn<Points>("polyline");
        QTest::newRow("none") << Points{} << Points{};
        QTest::newRow("one") << Points{{1, 5}} << Points{{1, 5}};
        QTest::newRow("two") << Points{{1, 5}, {2, 3}} << Points{{1, 5}, {1, 0}, {2, 3}};
        QTest::newRow("three: the last is slanted")
            << Points{{1, 5}, {2, 3}, {3, 4}}
            << Points{{1, 5}, {1, 0}, {2, 0}, {2, 3}, {2, 0}, {3, 4}};
        QTest::newRow("four") << Points{{1, 5}, {2, 3}, {3, 4}, {4, -1}}
                              << Points{{1, 5}, {1, 0}, {2, 0}, {2, 3}, {2, 0},
                                        {3, 0}, {3, 4}, {3, 0}, {4, -1}};
    }
    void sticksRiseFromTheBaseLine()
    {
        QFETCH(Points, points);
        QTEST(SpectrumPoints::sticks(points), "polyline");
    }

    void extentSpansAllPoints_data()
    {
        QTest::addColumn<Points>("points");
        QTest::addColumn<QList<double>>("extent");
        QTest::newRow("usual") << Points{{3, 1}, {-1, 20}, {7, -4}, {2, 2}}
                               << QList<double>{-1, 7, -4, 20};
        QTest::newRow("single point") << Points{{3, 5}} << QList<double>{3, 3, 5, 5};
        QTest::newRow("coordinates that no axis can show are passed over")
            << Points{{notANumber, 1}, {2, notANumber}, {infinity, 50}, {3, 5}, {4, -infinity}}
            << QList<double>{2, 4, 1, 50};
    }
    void extentSpansAllPoints()
    {
        QFETCH(Points, points);
        const auto extent = SpectrumPoints::extent(points);
        QVERIFY(extent);
        const QList<double> actual{extent->energy.lowest, extent->energy.highest,
                                   extent->intensity.lowest, extent->intensity.highest};
        QTEST(actual, "extent");
    }

    void noExtentWithoutPointsThatCanBeShown()
    {
        QVERIFY(!SpectrumPoints::extent({}));
        QVERIFY(!SpectrumPoints::extent({{notANumber, 1}, {infinity, 2}}));
        QVERIFY(!SpectrumPoints::extent({{1, notANumber}, {2, infinity}}));
    }
};

QTEST_MAIN(TestSpectrumPoints)
#include "tst_spectrumpoints.moc"
