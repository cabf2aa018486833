// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumchart.h"
#include "spectrum/spectrumchartview.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/spectrumtest.h"

#include <QCheckBox>
#include <QJsonArray>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QtCharts/QChart>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>
#include <QtCharts/QValueAxis>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

using Points = QList<QPointF>;

/// The drawn part of the plane: lowest and highest energy, lowest and highest intensity.
using Range = QList<double>;

QValueAxis* axis(const SpectrumWindow& window, Qt::Orientation orientation)
{
    return qobject_cast<QValueAxis*>(chartView(window)->chart()->axes(orientation).constFirst());
}

Range range(const SpectrumWindow& window)
{
    const auto* x = axis(window, Qt::Horizontal);
    const auto* y = axis(window, Qt::Vertical);
    return {x->min(), x->max(), y->min(), y->max()};
}

QLineSeries* series(const SpectrumWindow& window)
{
    return qobject_cast<QLineSeries*>(chartView(window)->chart()->series().constFirst());
}

void normalize(const SpectrumWindow& window)
{
    QTest::mouseClick(child<QPushButton>(window, "buttonNormalize"), Qt::LeftButton);
}

/// The pixel at these fractions of the plot, from its top left corner.
QPoint plotPixel(const SpectrumChartView& view, double right, double down)
{
    const QRectF plot = view.chart()->plotArea();
    const QPointF position(plot.x() + right * plot.width(), plot.y() + down * plot.height());
    return view.mapFromScene(view.chart()->mapToScene(position));
}

/// Drags a rectangle over the middle quarter of the plot.
void zoomIn(const SpectrumChartView& view)
{
    const QPoint from = plotPixel(view, 0.25, 0.25);
    const QPoint to = plotPixel(view, 0.75, 0.75);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, from);
    QTest::mouseMove(view.viewport(), (from + to) / 2);
    QTest::mouseMove(view.viewport(), to);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, to);
}

void rightClick(const SpectrumChartView& view)
{
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, plotPixel(view, 0.5, 0.5));
}

bool isNear(const Range& actual, const Range& expected, double tolerance)
{
    return std::equal(actual.begin(), actual.end(), expected.begin(), expected.end(),
                      [tolerance](double a, double b) { return std::abs(a - b) < tolerance; });
}

/// The largest difference of a pixel's colours between two pictures of the same size.
int largestDifference(const QImage& first, const QImage& second)
{
    int largest = first.size() == second.size() ? 0 : 255;
    for (int y = 0; largest < 255 && y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QColor a = first.pixelColor(x, y);
            const QColor b = second.pixelColor(x, y);
            largest = std::max({largest, std::abs(a.red() - b.red()),
                                std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
        }
    }
    return largest;
}

QString describe(const Range& values)
{
    QStringList texts;
    for (const double value : values)
        texts.append(QString::number(value));
    return texts.join(u' ');
}

} // namespace

/// The chart of a spectrum window: what it draws and which part of it is seen.
class TestSpectrumChart : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void chartAloneIsFilled()
    {
        SpectrumChart chart;
        const auto* line = qobject_cast<QLineSeries*>(chart.series().constFirst());
        const auto* energy = qobject_cast<QValueAxis*>(chart.axes(Qt::Horizontal).constFirst());
        const auto* intensity = qobject_cast<QValueAxis*>(chart.axes(Qt::Vertical).constFirst());
        const auto seen = [energy, intensity] {
            return Range{energy->min(), energy->max(), intensity->min(), intensity->max()};
        };

        chart.fill({{10, 5}, {11, 7}}, false);
        QVERIFY(!chart.showsSticks());
        QCOMPARE(line->points(), (Points{{10, 5}, {11, 7}}));
        QCOMPARE(seen(), (Range{10, 11, 5, 7}));
        chart.fill({{1, 5}, {2, 3}}, true);
        QVERIFY(chart.showsSticks());
        QCOMPARE(line->points(), (Points{{1, 5}, {1, 0}, {2, 3}}));
        QCOMPARE(seen(), (Range{1, 2, 3, 5}));
        chart.fill({}, false);
        QVERIFY(line->points().isEmpty());
        QCOMPARE(seen(), (Range{1, 2, 3, 5}));
    }

    void chartHasOneLineAndTwoAxes()
    {
        const SpectrumWindow window;
        const auto* view = chartView(window);
        const QChart* chart = view->chart();
        QVERIFY(!chart->legend()->isVisible());
        QCOMPARE(chart->series().size(), 1);
        QVERIFY(series(window) != nullptr);
        QCOMPARE(series(window)->type(), QAbstractSeries::SeriesTypeLine);
        QCOMPARE(series(window)->points(), Points());
        QCOMPARE(chart->axes().size(), 2);
        QCOMPARE(series(window)->attachedAxes().size(), 2);
        QVERIFY(series(window)->attachedAxes().contains(axis(window, Qt::Horizontal)));
        QVERIFY(series(window)->attachedAxes().contains(axis(window, Qt::Vertical)));
        QVERIFY(view->renderHints().testFlag(QPainter::Antialiasing));
        QCOMPARE(view->rubberBand(), QChartView::RectangleRubberBand);
    }

    void axesAreLabelled()
    {
        const SpectrumWindow window;
        const auto* energy = axis(window, Qt::Horizontal);
        const auto* intensity = axis(window, Qt::Vertical);
        QCOMPARE(energy->titleText(), u"h\u03bd / eV"_s);
        QCOMPARE(energy->labelFormat(), u"%.2f"_s);
        QCOMPARE(energy->alignment(), Qt::AlignBottom);
        QCOMPARE(intensity->titleText(), u"Intensity / arb. unit"_s);
        QCOMPARE(intensity->labelFormat(), u"%.2f"_s);
        QCOMPARE(intensity->alignment(), Qt::AlignLeft);
    }

    void curveIsDrawnAsTyped()
    {
        const SpectrumWindow window;
        setPoints(window, u"E I\n3 1\n1 2\n1 2\n2 -5"_s);
        QCOMPARE(series(window)->points(), (Points{{3, 1}, {1, 2}, {1, 2}, {2, -5}}));
        QCOMPARE(range(window), (Range{1, 3, -5, 2}));
    }

    void typedPointsAreDrawnOnceTheTypingPauses()
    {
        const SpectrumWindow window;
        QTest::keyClicks(child<QPlainTextEdit>(window, "textEditSpect"), u"1 2\r3 4"_s);
        QCOMPARE(series(window)->points(), Points());
        QSignalSpy replaced(series(window), &QXYSeries::pointsReplaced);
        QVERIFY(replaced.wait(patience));
        QCOMPARE(series(window)->points(), (Points{{1, 2}, {3, 4}}));
        QCOMPARE(range(window), (Range{1, 3, 2, 4}));
        QCOMPARE(replaced.count(), 1);
    }

    void datasetIsDrawnAtOnce()
    {
        const SpectrumWindow window({{u"E"_s, QJsonArray{10, 11}}, {u"I"_s, QJsonArray{5, 7}}});
        QCOMPARE(series(window)->points(), (Points{{10, 5}, {11, 7}}));
        QCOMPARE(range(window), (Range{10, 11, 5, 7}));
    }

    void seriesKeepsEveryPointWhateverIsShown()
    {
        SpectrumWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        Points many;
        QString text;
        for (int i = 0; i < 5000; ++i) {
            many.append({i + 1.0, i % 7 * 1.0});
            text += u"%1 %2\n"_s.arg(i + 1).arg(i % 7);
        }
        setPoints(window, text);
        QSignalSpy replaced(series(window), &QXYSeries::pointsReplaced);
        QCOMPARE(series(window)->points(), many);
        zoomIn(*chartView(window));
        QVERIFY(chartView(window)->chart()->isZoomed());
        QCOMPARE(series(window)->points(), many);
        rightClick(*chartView(window));
        QCOMPARE(series(window)->points(), many);
        window.resize(window.width() + 100, window.height() + 50);
        QCoreApplication::processEvents();
        QCOMPARE(series(window)->points(), many);
        QCOMPARE(replaced.count(), 0);
    }

    void curveLooksAsTheToolkitDrawsIt()
    {
        SpectrumWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        setPoints(window, u"9 1\n9.2 70\n9.3 65\n9.7 100\n9.5 20\n10 0"_s);
        QChart* chart = chartView(window)->chart();
        // The toolkit rounds where it cuts lines off.
        const QRect plot = chart->plotArea().toAlignedRect().adjusted(1, 1, -1, -1);
        const QImage ours = chartView(window)->grab(plot).toImage();

        auto* theirs = new QLineSeries; // of the same colour as ours: it is the first, too
        theirs->setPen(series(window)->pen());
        theirs->replace(series(window)->points());
        series(window)->hide();
        series(window)->clear();
        for (QGraphicsItem* item : chart->childItems()) {
            if (item->cacheMode() != QGraphicsItem::NoCache)
                item->hide();
        }
        QVERIFY(chartView(window)->grab(plot).toImage() != ours);
        chart->addSeries(theirs);
        for (QAbstractAxis* itsAxis : chart->axes())
            theirs->attachAxis(itsAxis);
        chart->legend()->hide();
        QCoreApplication::processEvents();
        constexpr int hardlyVisible = 24; // of 255
        QVERIFY(largestDifference(chartView(window)->grab(plot).toImage(), ours) < hardlyVisible);
    }

    void loadedPointsLookLikeTypedOnes()
    {
        SpectrumWindow loaded(
            QJsonObject{{u"E"_s, QJsonArray{9.5, 10, 11.25}}, {u"I"_s, QJsonArray{12.5, 1000, 0}}});
        SpectrumWindow typed;
        for (SpectrumWindow* window : {&loaded, &typed}) {
            window->show();
            QVERIFY(QTest::qWaitForWindowExposed(window));
        }
        setPoints(typed, u"9.5 12.5\n10 1000\n11.25 0"_s);
        QCOMPARE(chartView(loaded)->chart()->plotArea(), chartView(typed)->chart()->plotArea());
        QCOMPARE(chartView(loaded)->grab().toImage(), chartView(typed)->grab().toImage());
    }

    void lineSpectrumIsDrawnAsSticks_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Points>("drawn");
        QTest::newRow("none") << QString() << Points{};
        QTest::newRow("one") << u"1 5"_s << Points{{1, 5}};
        QTest::newRow("two") << u"1 5\n2 3"_s << Points{{1, 5}, {1, 0}, {2, 3}};
        QTest::newRow("three") << u"1 5\n2 3\n3 4"_s
                               << Points{{1, 5}, {1, 0}, {2, 0}, {2, 3}, {2, 0}, {3, 4}};
    }
    void lineSpectrumIsDrawnAsSticks()
    {
        QFETCH(QString, text);
        const SpectrumWindow window({{u"LineSpectrum"_s, true}});
        setPoints(window, text);
        QTEST(series(window)->points(), "drawn");
    }

    void sticksMayStartBelowTheSeenRange()
    {
        const SpectrumWindow window({{u"LineSpectrum"_s, true}});
        setPoints(window, u"1 5\n2 3\n3 4"_s);
        QCOMPARE(range(window), (Range{1, 3, 3, 5}));
    }

    void singlePointGivesRangesWithoutWidth()
    {
        const SpectrumWindow window;
        setPoints(window, u"12 5"_s);
        QCOMPARE(range(window), (Range{12, 12, 5, 5}));
    }

    void emptyTextKeepsTheRanges()
    {
        const SpectrumWindow window;
        setPoints(window, u"1 2\n3 4"_s);
        setPoints(window, QString());
        QCOMPARE(series(window)->points(), Points());
        QCOMPARE(range(window), (Range{1, 3, 2, 4}));
    }

    void numbersThatNoAxisShowsDoNotSpoilTheRanges()
    {
        const SpectrumWindow window;
        setPoints(window, u"1 2\ninf 3\n3 nan\n2 5"_s);
        QCOMPARE(range(window), (Range{1, 3, 2, 5}));
    }

    void newPointsReplaceTheRanges()
    {
        const SpectrumWindow window;
        setPoints(window, u"1 2\n3 4"_s);
        setPoints(window, u"100 -7\n90 8"_s);
        QCOMPARE(range(window), (Range{90, 100, -7, 8}));
    }

    void chartWithoutALineIsLeftAlone()
    {
        const SpectrumWindow window;
        setPoints(window, u"1 2\n3 4"_s);
        QChart* chart = chartView(window)->chart();
        chart->removeAllSeries();
        normalize(window);
        QCOMPARE(range(window), (Range{1, 3, 2, 4}));

        auto* dots = new QScatterSeries;
        chart->addSeries(dots);
        setPoints(window, u"5 6\n7 8"_s);
        QCOMPARE(dots->points(), Points());
        QCOMPARE(range(window), (Range{1, 3, 2, 4}));
    }

    void rangesNeedBothAxes()
    {
        const SpectrumWindow window;
        setPoints(window, u"1 2\n3 4"_s);
        QChart* chart = chartView(window)->chart();
        const std::unique_ptr<QAbstractAxis> removed(axis(window, Qt::Vertical));
        chart->removeAxis(removed.get());
        setPoints(window, u"5 6\n7 8"_s);
        QCOMPARE(series(window)->points(), (Points{{5, 6}, {7, 8}}));
        QCOMPARE(axis(window, Qt::Horizontal)->min(), 1.0);
        QCOMPARE(axis(window, Qt::Horizontal)->max(), 3.0);
    }

    void draggingARectangleZoomsIntoIt()
    {
        const auto* window = show();
        setPoints(*window, u"0 0\n10 100"_s);
        zoomIn(*chartView(*window));
        const Range seen = range(*window);
        QVERIFY2(isNear(seen.first(2), {2.5, 7.5}, 0.3), qPrintable(describe(seen)));
        QVERIFY2(isNear(seen.sliced(2), {25, 75}, 3), qPrintable(describe(seen)));
    }

    void dragBeforeTheFirstPaintingZoomsToo()
    {
        SpectrumWindow window({{u"E"_s, QJsonArray{8, 12}}, {u"I"_s, QJsonArray{0, 100}}});
        window.show();
        zoomIn(*chartView(window));
        QVERIFY2(isNear(range(window), {9, 11, 25, 75}, 0.5), qPrintable(describe(range(window))));
    }

    void rightClickShowsEverythingAgain()
    {
        const auto* window = show();
        setPoints(*window, u"0 0\n10 100"_s);
        const auto* view = chartView(*window);
        zoomIn(*view);
        zoomIn(*view);
        QVERIFY(isNear(range(*window).first(2), {3.75, 6.25}, 0.3));
        rightClick(*view);
        QVERIFY2(isNear(range(*window), {0, 10, 0, 100}, 1e-9),
                 qPrintable(describe(range(*window))));
        QVERIFY(!view->chart()->isZoomed());
    }

    void rightClickDoesNotZoomOut()
    {
        const auto* window = show();
        setPoints(*window, u"0 0\n10 100"_s);
        rightClick(*chartView(*window));
        QCOMPARE(range(*window), (Range{0, 10, 0, 100}));
    }

    void newPointsEndTheZoom()
    {
        const auto* window = show();
        setPoints(*window, u"0 0\n10 100"_s);
        zoomIn(*chartView(*window));
        normalize(*window);
        QCOMPARE(range(*window), (Range{0, 10, 0, 1000}));
    }

    void emptiedPointsLeaveTheAxesWhereTheZoomHadThem()
    {
        const auto* window = show();
        setPoints(*window, u"0 0\n10 100"_s);
        zoomIn(*chartView(*window));
        const Range zoomed = range(*window);
        setPoints(*window, QString());
        QCOMPARE(range(*window), zoomed);
        setPoints(*window, u"20 5\n30 6"_s);
        QCOMPARE(range(*window), (Range{20, 30, 5, 6}));
    }

    void rightClickAfterAZoomShowsTodaysPoints()
    {
        const auto* window = show();
        setPoints(*window, u"0 0\n10 100"_s);
        zoomIn(*chartView(*window));
        setPoints(*window, u"20 5\n30 6"_s);
        rightClick(*chartView(*window));
        QCOMPARE(range(*window), (Range{20, 30, 5, 6}));
        zoomIn(*chartView(*window));
        rightClick(*chartView(*window));
        QVERIFY2(isNear(range(*window), {20, 30, 5, 6}, 1e-9),
                 qPrintable(describe(range(*window))));
    }

    void oddPointsLeaveTheChartUsable_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("single point") << u"12 5"_s;
        QTest::newRow("equal intensities") << u"1 5\n2 5"_s;
        QTest::newRow("whole range of doubles") << u"-1e308 -1e308\n1e308 1e308"_s;
        QTest::newRow("huge") << u"0 0\n1e300 1e300"_s;
        QTest::newRow("tiny") << u"0 0\n4.9e-324 4.9e-324"_s;
        QTest::newRow("far from zero") << u"1e15 1\n1000000000000000.1 2"_s;
        QTest::newRow("infinite and undefined") << u"inf inf\nnan nan\n-inf 1\n1 -inf"_s;
        QTest::newRow("from high to low") << u"3 1\n2 2\n1 3"_s;
    }
    void oddPointsLeaveTheChartUsable()
    {
        QFETCH(QString, text);
        const auto* window = show();
        const auto* view = chartView(*window);
        setPoints(*window, text);
        QVERIFY(!document->grab().isNull());
        zoomIn(*view);
        QVERIFY(!document->grab().isNull());
        rightClick(*view);

        setPoints(*window, u"0 0\n10 100"_s);
        QCOMPARE(series(*window)->points(), (Points{{0, 0}, {10, 100}}));
        QCOMPARE(range(*window), (Range{0, 10, 0, 100}));
        zoomIn(*view);
        QVERIFY2(isNear(range(*window).first(2), {2.5, 7.5}, 0.3),
                 qPrintable(describe(range(*window))));
        rightClick(*view);
        QVERIFY(isNear(range(*window), {0, 10, 0, 100}, 1e-9));
    }

    void togglingSticksEndsTheZoom()
    {
        const auto* window = show();
        setPoints(*window, u"0 0\n10 100"_s);
        zoomIn(*chartView(*window));
        auto* box = child<QCheckBox>(*window, "checkBoxLineSpectrum");
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(range(*window), (Range{0, 10, 0, 100}));
    }
};

QTEST_MAIN(TestSpectrumChart)
#include "tst_spectrumchart.moc"
