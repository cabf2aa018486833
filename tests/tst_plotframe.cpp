// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/coveredsegments.h"
#include "spectrum/plotframe.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

using Points = QList<QPointF>;

namespace {

/// Energies 0 to 10 and intensities 0 to 100 on 100 x 100 pixels: ten pixels to the eV, one to the
/// unit of intensity.
PlotFrame hundred()
{
    return {{{0, 10}, {0, 100}}, QRectF(0, 0, 100, 100)};
}

QList<QPolygonF> visible(const Points& points, const PlotFrame& frame = hundred())
{
    return visibleLines(points, frame, 1, 2);
}

/// All corners of the lines, one after the other.
Points corners(const QList<QPolygonF>& lines)
{
    Points all;
    for (const QPolygonF& line : lines)
        all += line;
    return all;
}

} // namespace

/// Where points are in a plot, and what can be seen of the line through them.
class TestPlotFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void positionsCountDownwards()
    {
        const PlotFrame frame{{{8, 12}, {-50, 50}}, QRectF(100, 40, 200, 100)};
        QCOMPARE(frame.position({8, -50}), QPointF(100, 140));
        QCOMPARE(frame.position({12, 50}), QPointF(300, 40));
        QCOMPARE(frame.position({9, 0}), QPointF(150, 90));
    }

    void frameWithoutWidthShowsNothing_data()
    {
        QTest::addColumn<PlotFrame>("frame");
        QTest::newRow("one energy") << PlotFrame{{{5, 5}, {0, 1}}, QRectF(0, 0, 9, 9)};
        QTest::newRow("one intensity") << PlotFrame{{{0, 5}, {1, 1}}, QRectF(0, 0, 9, 9)};
        QTest::newRow("no area") << PlotFrame{{{0, 5}, {0, 1}}, QRectF(0, 0, 9, 0)};
        QTest::newRow("new") << PlotFrame();
    }
    void frameWithoutWidthShowsNothing()
    {
        QFETCH(PlotFrame, frame);
        QVERIFY(frame.isEmpty());
        QCOMPARE(visible({{0, 0}, {5, 1}}, frame), QList<QPolygonF>());
        QVERIFY(std::isinf(frame.distance({1, 1}, {5, 1}, false)));
    }

    void fewPointsAreKeptAsTheyAre()
    {
        const Points sparse{{0, 0}, {1, 50}, {3, 20}, {2, 80}, {10, 100}};
        QCOMPARE(visible(sparse),
                 QList<QPolygonF>{QPolygonF({{0, 100}, {10, 50}, {30, 80}, {20, 20}, {100, 0}})});
        QCOMPARE(visible({{1, 1}}), QList<QPolygonF>()); // one point is no line
        QCOMPARE(visible({}), QList<QPolygonF>());
    }

    void firstLowestHighestAndLastOfAColumnAreKept()
    {
        QCOMPARE(
            visible({{1, 0}, {5.01, 40}, {5.02, 10}, {5.03, 50}, {5.04, 90}, {5.05, 60}, {9, 0}}),
            QList<QPolygonF>{
                QPolygonF({{10, 100}, {50.1, 60}, {50.2, 90}, {50.4, 10}, {50.5, 40}, {90, 100}})});
    }

    void columnsAreRunsOfNeighbours()
    {
        // To and fro between two columns: nothing may be left out.
        const Points toAndFro{{2, 10}, {7, 20}, {2, 30}, {7, 40}, {2, 50}};
        QCOMPARE(corners(visible(toAndFro)).size(), toAndFro.size());
    }

    void columnsFollowTheScale()
    {
        const Points inOneColumn{{5.01, 0}, {5.03, 30}, {5.05, 60}, {5.06, 20}, {5.08, 90}};
        QCOMPARE(corners(visibleLines(inOneColumn, hundred(), 1, 2)).size(), 2);
        QCOMPARE(corners(visibleLines(inOneColumn, hundred(), 8, 2)).size(), 5);
    }

    void whatIsBesideIsCutOff()
    {
        const PlotFrame narrow{{{4, 6}, {0, 100}}, QRectF(0, 0, 100, 100)};
        QCOMPARE(visible({{0, 0}, {10, 100}}, narrow),
                 QList<QPolygonF>{QPolygonF(Points{{-2, 60.4}, {102, 39.6}})});
        QCOMPARE(visible({{0, 0}, {1, 100}, {2, 0}}, narrow), QList<QPolygonF>());
        QCOMPARE(visible({{5, 200}, {5.5, 300}}, narrow), QList<QPolygonF>());
        // It leaves and comes back: two lines.
        QCOMPARE(visible({{4.5, 50}, {5, 150}, {5.5, 50}}, narrow).size(), 2);
    }

    void hugeCoordinatesStayNearTheArea()
    {
        const Points wild{{-1e300, -1e300}, {5, 50}, {1e300, 1e300}, {5, -1e200}};
        for (const QPointF& corner : corners(visible(wild)))
            QVERIFY(QRectF(-3, -3, 106, 106).contains(corner));
    }

    void pointsThatAreNotFiniteInterrupt()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const double inf = std::numeric_limits<double>::infinity();
        QCOMPARE(visible({{1, 10}, {2, 20}, {nan, 1}, {3, 30}, {4, 40}, {5, inf}, {6, 1}}),
                 (QList<QPolygonF>{QPolygonF(Points{{10, 90}, {20, 80}}),
                                   QPolygonF(Points{{30, 70}, {40, 60}})}));
    }

    void nothingSeenIsLost()
    {
        std::mt19937 generator(7); // NOLINT(*-msc51-cpp,*-msc32-c): the same numbers every time
        std::uniform_real_distribution<double> intensity(0, 100);
        Points noise;
        constexpr int count = 20'000;
        for (int i = 0; i < count; ++i)
            noise.append({10.0 * i / count, intensity(generator)});
        const Points kept = corners(visible(noise));
        QVERIFY(kept.size() <= 4 * 101);
        QList<std::pair<double, double>> whole(100, {100, 0});
        QList<std::pair<double, double>> seen = whole;
        const auto enter = [](auto& extents, QPointF position) {
            auto& [top, bottom] = extents[std::min(99, static_cast<int>(position.x()))];
            top = std::min(top, position.y());
            bottom = std::max(bottom, position.y());
        };
        for (const QPointF& point : noise)
            enter(whole, hundred().position(point));
        for (const QPointF& position : kept)
            enter(seen, position);
        QCOMPARE(seen, whole);
    }

    void coveredSegmentsAreLeftOut()
    {
        const QRectF area(0, 0, 100, 50);
        const QLineF slope(0, 0, 100, 50);
        const QLineF flat(0, 25, 100, 25);
        const auto kept = [&area](const QList<QLineF>& segments, double scale = 1) {
            return withoutCovered(segments, area, scale);
        };
        QCOMPARE(kept({}), QList<QLineF>());
        QCOMPARE(kept({slope, flat, slope, flat}), QList<QLineF>({slope, flat}));
        QCOMPARE(kept({flat, QLineF(20, 25, 40, 25), QLineF(70, 25.3, 10, 25.3)}),
                 QList<QLineF>({flat}));
        const QLineF nextRow(70, 26, 10, 26);
        QCOMPARE(kept({flat, nextRow}), QList<QLineF>({flat, nextRow}));
        const QLineF nextFineRow(70, 25.6, 10, 25.6);
        QCOMPARE(kept({flat, nextFineRow}, 2), QList<QLineF>({flat, nextFineRow}));
        const QLineF longer(30, 25, 100, 30);
        QCOMPARE(kept({flat, longer}), QList<QLineF>({flat, longer}));
        QCOMPARE(kept({QLineF(3, 3, 3, 3), QLineF(-9, -9, 999, 999)}).size(), 2);
    }

    void distanceIsToThePointOrToItsStick()
    {
        QCOMPARE(hundred().distance({50, 50}, {5.3, 54}, false), 5.0);
        QCOMPARE(hundred().distance({50, 50}, {5.3, 54}, true), 3.0);
        QCOMPARE(hundred().distance({50, 42}, {5.3, 54}, true), 5.0); // above the stick
        QVERIFY(std::isinf(hundred().distance({50, 50}, {11, 50}, false)));
        QVERIFY(std::isinf(hundred().distance({50, 50}, {5, 101}, false)));
    }
};

QTEST_APPLESS_MAIN(TestPlotFrame)
#include "tst_plotframe.moc"
