// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumchartview.h"
#include "tests/support/sandbox.h"

#include <QLabel>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QRubberBand>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <QtCharts/QChart>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace Qt::StringLiterals;

namespace {

/// A shown chart of known geometry: its plot spans the pixels 100 to 300 across and 50 to 250 down.
class ShownChart
{
public:
    ShownChart(double lowestX, double highestX, double lowestY, double highestY)
    {
        auto* series = new QLineSeries;
        auto newChart = std::make_unique<QChart>();
        QChart* chart = newChart.get();
        chart->addSeries(series);
        chart->addAxis(x, Qt::AlignBottom);
        chart->addAxis(y, Qt::AlignLeft);
        series->attachAxis(x);
        series->attachAxis(y);
        view.takeChart(std::move(newChart));
        view.setRubberBand(QChartView::RectangleRubberBand);
        x->setRange(lowestX, highestX);
        y->setRange(lowestY, highestY);
        view.resize(400, 300);
        chart->setPlotArea(QRectF(100, 50, 200, 200));
        shown = TestSupport::showActive(view);
    }

    [[nodiscard]] QLabel* readOut() const { return view.findChild<QLabel*>(); }

    /// What the read-out has to say at a pixel of the view.
    [[nodiscard]] QString valueAt(QPointF pixel) const
    {
        const QPointF value = view.chart()->mapToValue(pixel);
        return u"h\u03bd: %1, I: %2"_s.arg(value.x(), 0, 'f', 4).arg(value.y(), 0, 'f', 2);
    }

    /// Moves the mouse there, with no button down.
    void hover(QPoint pixel)
    {
        QTest::mouseMove(view.windowHandle(), pixel);
        QCoreApplication::processEvents();
    }

    /// Makes the chart smaller than its view.
    void leaveRoomBeside()
    {
        view.chart()->setPlotArea(QRectF());
        view.chart()->setMaximumSize(350, 250);
        view.chart()->resize(350, 250);
    }

    SpectrumChartView view;
    QValueAxis* x = new QValueAxis;
    QValueAxis* y = new QValueAxis;
    bool shown = false;
};

} // namespace

/// The chart view: read-out under the mouse, and what its buttons do.
class TestSpectrumChartView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addsNothingToTheMetaObject()
    {
        const QMetaObject& meta = SpectrumChartView::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), "SpectrumChartView");
        QCOMPARE(QByteArray(meta.superClass()->className()), "QChartView");
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void readOutIsAnEmptyTranslucentBoxAtFirst()
    {
        const SpectrumChartView view;
        QCOMPARE(view.findChildren<QLabel*>().size(), 1);
        const auto* label = view.findChild<QLabel*>();
        QCOMPARE(label->parent(), &view);
        QCOMPARE(label->text(), QString());
        QCOMPARE(label->styleSheet(),
                 u"background-color: rgba(255, 255, 255, 150); padding: 2px;"_s);
        QCOMPARE(label->alignment(), Qt::AlignCenter);
        QVERIFY(!label->isHidden());
        QVERIFY(view.chart() != nullptr);
        QVERIFY(view.renderHints().testFlag(QPainter::Antialiasing));
        QVERIFY(view.testAttribute(Qt::WA_MouseTracking));
    }

    void hoveringShowsTheValueUnderTheMouse_data()
    {
        QTest::addColumn<QPoint>("pixel");
        QTest::addColumn<QString>("text");
        QTest::newRow("middle") << QPoint(200, 150) << u"h\u03bd: 12.3457, I: 0.50"_s;
        QTest::newRow("bottom left") << QPoint(100, 250) << u"h\u03bd: 11.3457, I: -1.50"_s;
        QTest::newRow("top right") << QPoint(300, 50) << u"h\u03bd: 13.3457, I: 2.50"_s;
        QTest::newRow("beside the plot") << QPoint(0, 150) << u"h\u03bd: 10.3457, I: 0.50"_s;
    }
    void hoveringShowsTheValueUnderTheMouse()
    {
        QFETCH(QPoint, pixel);
        ShownChart chart(11.345678, 13.345678, -1.5, 2.5);
        QVERIFY(chart.shown);
        chart.hover({10, 10});
        chart.hover(pixel);
        QTEST(chart.readOut()->text(), "text");
    }

    void largeValuesAreShownWithoutExponent()
    {
        ShownChart chart(0, 2e8, -2e9, 0);
        QVERIFY(chart.shown);
        chart.hover({10, 10});
        chart.hover({200, 150});
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 100000000.0000, I: -1000000000.00"_s);
    }

    void positionIsRoundedToWholePixels()
    {
        ShownChart chart(0, 200, 0, 200); // one unit a pixel
        QVERIFY(chart.shown);
        const auto moveTo = [&chart](QPointF position) {
            QMouseEvent move(QEvent::MouseMove, position, position, position, Qt::NoButton,
                             Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(chart.view.viewport(), &move);
        };
        moveTo({149.5, 150.4});
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 50.0000, I: 100.00"_s);
        moveTo({149.4, 149.6});
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 49.0000, I: 100.00"_s);
    }

    void readOutSitsInTheBottomRightCorner()
    {
        ShownChart chart(0, 1000, 0, 1);
        QVERIFY(chart.shown);
        const auto corner = [&chart] {
            const QRect box = chart.readOut()->geometry();
            return QPoint(box.x() + box.width(), box.y() + box.height());
        };
        chart.hover({10, 10});
        chart.hover({101, 150});
        QCOMPARE(corner(), QPoint(390, 290));
        const int width = chart.readOut()->width();
        QCOMPARE(chart.readOut()->size(), chart.readOut()->sizeHint());
        chart.hover({300, 150});
        QVERIFY(chart.readOut()->width() > width);
        QCOMPARE(corner(), QPoint(390, 290));
        chart.view.resize(500, 350);
        QCOMPARE(corner(), QPoint(490, 340));
    }

    void readOutLetsTheMouseThrough()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        chart.hover({10, 10});
        const QPoint onTheReadOut(380, 280);
        QVERIFY(chart.readOut()->geometry().contains(onTheReadOut));
        chart.hover(onTheReadOut);
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 280.0000, I: -30.00"_s);
    }

    void readOutStaysInsideASmallView()
    {
        ShownChart chart(0, 10, 0, 1);
        QVERIFY(chart.shown);
        chart.hover({10, 10});
        chart.hover({200, 150});
        chart.view.setMinimumSize(1, 1);
        chart.view.chart()->setMinimumSize(0, 0);
        chart.view.setFixedSize(30, 15);
        QCOMPARE(chart.view.size(), QSize(30, 15));
        QCOMPARE(chart.readOut()->pos(), QPoint(0, 0));
    }

    void draggingStillReadsOut()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        QTest::mousePress(chart.view.viewport(), Qt::LeftButton, {}, {150, 100});
        QTest::mouseMove(chart.view.viewport(), {250, 200});
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 150.0000, I: 50.00"_s);
        QTest::mouseRelease(chart.view.viewport(), Qt::LeftButton, {}, {250, 200});
        QVERIFY(chart.view.chart()->isZoomed());
        QCOMPARE(qRound(chart.x->min()), 50);
        QCOMPARE(qRound(chart.x->max()), 150);
        QCOMPARE(qRound(chart.y->min()), 50);
        QCOMPARE(qRound(chart.y->max()), 150);
    }

    void chartFillsItsViewAfterEveryResize()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        for (const QSize size : {QSize(500, 350), QSize(450, 600), QSize(450, 300)}) {
            chart.view.resize(size);
            QTRY_COMPARE(chart.view.chart()->size(), QSizeF(size));
        }
    }

    void chartResizedOutOfSightFillsItsViewWhenSeenAgain()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        chart.view.hide();
        chart.view.resize(500, 350);
        QVERIFY(TestSupport::showActive(chart.view));
        QTRY_COMPARE(chart.view.chart()->size(), QSizeF(500, 350));
    }

    void slipOfTheMouseIsNoZoom_data()
    {
        QTest::addColumn<QPoint>("drag");
        QTest::addColumn<bool>("zooms");
        QTest::newRow("no way at all") << QPoint(0, 0) << false;
        QTest::newRow("some pixels") << QPoint(3, 4) << false;
        QTest::newRow("flat") << QPoint(60, 5) << false;
        QTest::newRow("narrow") << QPoint(5, 60) << false;
        QTest::newRow("backwards") << QPoint(-5, -60) << false;
        QTest::newRow("just enough") << QPoint(10, 10) << true;
    }
    void slipOfTheMouseIsNoZoom()
    {
        QFETCH(const QPoint, drag);
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        const QPoint start(200, 150);
        QTest::mousePress(chart.view.viewport(), Qt::LeftButton, {}, start);
        QTest::mouseMove(chart.view.viewport(), start + drag);
        QTest::mouseRelease(chart.view.viewport(), Qt::LeftButton, {}, start + drag);
        QTEST(chart.view.chart()->isZoomed(), "zooms");
        QCOMPARE(chart.x->max() < 200, chart.view.chart()->isZoomed());
        const auto* band = chart.view.findChild<QRubberBand*>();
        QVERIFY(band == nullptr || !band->isVisible());
    }

    void readOutTellsTheTruthAfterAZoomAndItsEnd()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        QTest::mousePress(chart.view.viewport(), Qt::LeftButton, {}, {150, 100});
        QTest::mouseMove(chart.view.viewport(), {250, 200});
        QTest::mouseRelease(chart.view.viewport(), Qt::LeftButton, {}, {250, 200});
        QCOMPARE(chart.readOut()->text(), chart.valueAt({250, 200}));
        QTest::mouseClick(chart.view.viewport(), Qt::RightButton, {}, {250, 200});
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 150.0000, I: 50.00"_s);
        chart.x->setRange(0, 100);
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 75.0000, I: 50.00"_s);
    }

    void arrowsMoveTheReadOut()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        chart.view.setFocus();
        QTest::keyClick(&chart.view, Qt::Key_Right);
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 101.0000, I: 100.00"_s);
        QTest::keyClick(&chart.view, Qt::Key_Up);
        QTest::keyClick(&chart.view, Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 91.0000, I: 101.00"_s);
        for (int i = 0; i < 30; ++i)
            QTest::keyClick(&chart.view, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(chart.readOut()->text(), u"h\u03bd: 91.0000, I: 0.00"_s);
    }

    void keysZoom_data()
    {
        QTest::addColumn<Qt::Key>("end");
        QTest::newRow("0") << Qt::Key_0;
        QTest::newRow("Escape") << Qt::Key_Escape;
        QTest::newRow("minus") << Qt::Key_Minus;
    }
    void keysZoom()
    {
        QFETCH(const Qt::Key, end);
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        chart.view.setFocus();
        QTest::keyClick(&chart.view, Qt::Key_Plus);
        QCOMPARE(qRound(chart.x->max() - chart.x->min()), 100);
        QTest::keyClick(&chart.view, Qt::Key_Plus);
        QCOMPARE(qRound(chart.x->max() - chart.x->min()), 50);
        QTest::keyClick(&chart.view, Qt::Key_Minus);
        QCOMPARE(qRound(chart.x->max() - chart.x->min()), 100);
        QTest::keyClick(&chart.view, end);
        QVERIFY(!chart.view.chart()->isZoomed());
        QCOMPARE(chart.x->min(), 0.0);
        QCOMPARE(chart.x->max(), 200.0);
        QTest::keyClick(&chart.view, Qt::Key_Minus);
        QCOMPARE(chart.x->max(), 200.0);
    }

    void placeOfTheReadOutIsShownByKeyOnly()
    {
        ShownChart chart(0, 10, 0, 100);
        QVERIFY(chart.shown);
        chart.view.setFocus();
        const auto isCrossed = [&chart](QPoint place) {
            const QImage seen = chart.view.grab().toImage();
            return seen.pixelColor(place + QPoint(5, 0)) == QColor(Qt::black) &&
                   seen.pixelColor(place + QPoint(0, 5)) == QColor(Qt::black);
        };
        const QPoint middle(200, 150);
        QTest::keyClick(&chart.view, Qt::Key_Right);
        QVERIFY(isCrossed(middle + QPoint(1, 0)));
        QTest::keyClick(&chart.view, Qt::Key_Down, Qt::ShiftModifier);
        QVERIFY(!isCrossed(middle + QPoint(1, 0)));
        QVERIFY(isCrossed(middle + QPoint(1, 10)));
        chart.hover({150, 100});
        QVERIFY(!isCrossed(middle + QPoint(1, 10)));
        QVERIFY(!isCrossed({150, 100}));
    }

    void focusShows()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        chart.view.clearFocus();
        const QImage without = chart.view.grab().toImage();
        chart.view.setFocus();
        QVERIFY(chart.view.grab().toImage() != without);
    }

    void pressBesideTheChartDoesNothing_data()
    {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::newRow("left") << Qt::LeftButton;
        QTest::newRow("right") << Qt::RightButton;
        QTest::newRow("middle") << Qt::MiddleButton;
    }
    void pressBesideTheChartDoesNothing()
    {
        QFETCH(Qt::MouseButton, button);
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        chart.leaveRoomBeside();
        const QPoint beside(395, 295);
        QTRY_VERIFY(chart.view.itemAt(beside) == nullptr);
        QTest::mousePress(chart.view.viewport(), button, {}, beside);
        QTest::mouseRelease(chart.view.viewport(), button, {}, beside);
        QVERIFY(!chart.view.chart()->isZoomed());
        QCOMPARE(chart.x->max(), 200.0);
    }

    void rightClickBesideTheChartEndsTheZoom()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        chart.view.chart()->zoomIn(QRectF(150, 100, 100, 100));
        QVERIFY(chart.view.chart()->isZoomed());
        chart.leaveRoomBeside();
        const QPoint beside(395, 295);
        QTRY_VERIFY(chart.view.itemAt(beside) == nullptr);
        QTest::mouseClick(chart.view.viewport(), Qt::RightButton, {}, beside);
        QVERIFY(!chart.view.chart()->isZoomed());
        QCOMPARE(chart.x->max(), 200.0);
    }

    void wheelIsLeftToTheFormAround()
    {
        ShownChart chart(0, 200, 0, 200);
        QVERIFY(chart.shown);
        const QPointF place(200, 150);
        QWheelEvent turn(place, chart.view.viewport()->mapToGlobal(place), {}, {0, -120},
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(chart.view.viewport(), &turn);
        QVERIFY(!turn.isAccepted());
    }
};

QTEST_MAIN(TestSpectrumChartView)
#include "tst_spectrumchartview.moc"
