// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/plotframe.h"
#include "spectrum/spectrumchart.h"
#include "spectrum/spectrumchartview.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/spectrumtest.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QtCharts/QChart>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

const QString points = u"E I\n9.0; 0\n9.5 ; 100\n\n10.0 50\n9.8 80\n11.0 0"_s;

PlotFrame frame(const SpectrumWindow& window)
{
    return qobject_cast<SpectrumChart*>(chartView(window)->chart())->frame();
}

/// Where a point is drawn, in the view.
QPoint pixel(const SpectrumWindow& window, QPointF point)
{
    return frame(window).position(point).toPoint();
}

void click(const SpectrumWindow& window, QPoint at, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(chartView(window)->viewport(), button, {}, at);
}

/// Whether the chart looks marked at a point: there is red, which neither curve nor axes have.
bool isMarked(const SpectrumWindow& window, QPointF point)
{
    constexpr int reach = 8;
    const QImage seen = chartView(window)->grab().toImage();
    const QPoint centre = pixel(window, point);
    for (int y = centre.y() - reach; y <= centre.y() + reach; ++y) {
        for (int x = centre.x() - reach; x <= centre.x() + reach; ++x) {
            const QColor colour = seen.pixelColor(x, y);
            if (colour.red() > 150 && colour.green() < 80 && colour.blue() < 80)
                return true;
        }
    }
    return false;
}

QString selected(const SpectrumWindow& window)
{
    return pointEditor(window)->textCursor().selectedText();
}

void typeInto(QPlainTextEdit* list, const QString& text)
{
    list->setFocus();
    QTest::keyClicks(list, text);
}

} // namespace

/// Point list and chart of a spectrum show the same point.
class TestPointListLink : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        SpectrumTest::init();
        window = show();
        setPoints(*window, points);
    }

    void clickSelectsTheLineOfTheNearestPoint_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QPoint>("beside");
        QTest::addColumn<QString>("line");
        QTest::newRow("on it") << QPointF(10, 50) << QPoint(0, 0) << u"10.0 50"_s;
        QTest::newRow("near it") << QPointF(9.5, 100) << QPoint(6, 9) << u"9.5 ; 100"_s;
        QTest::newRow("later in the list, earlier in energy")
            << QPointF(9.8, 80) << QPoint(-3, 5) << u"9.8 80"_s;
        QTest::newRow("first") << QPointF(9, 0) << QPoint(2, -2) << u"9.0; 0"_s;
        QTest::newRow("last") << QPointF(11, 0) << QPoint(-2, -2) << u"11.0 0"_s;
    }
    void clickSelectsTheLineOfTheNearestPoint()
    {
        QFETCH(QPointF, point);
        QFETCH(QPoint, beside);
        QFETCH(QString, line);
        click(*window, pixel(*window, point) + beside);
        QCOMPARE(selected(*window), line);
        QVERIFY(isMarked(*window, point));
        QVERIFY(chartView(*window)->hasFocus());
    }

    void clickAtAStickSelectsItsPoint()
    {
        setPoints(*window, u"9 0\n10 1000\n10.4 10\n11 5"_s);
        // Nearer to the tip of the low stick, but on the high one.
        const QPoint onHighStick = pixel(*window, {10, 20});
        QTest::mouseClick(child<QWidget>(*window, "checkBoxLineSpectrum"), Qt::LeftButton);
        click(*window, onHighStick);
        QCOMPARE(selected(*window), u"10 1000"_s);
    }

    void clickTakesWhatTheListHoldsNow()
    {
        QPlainTextEdit* list = pointEditor(*window);
        list->moveCursor(QTextCursor::End);
        typeInto(list, u"\r10.5 20"_s);
        click(*window, pixel(*window, {10.5, 20}));
        QCOMPARE(selected(*window), u"10.5 20"_s);
    }

    void selectedLineIsScrolledIntoView()
    {
        QStringList lines;
        for (int i = 0; i < 2000; ++i)
            lines.append(u"%1 %2"_s.arg(i).arg(i % 100));
        setPoints(*window, lines.join(u'\n'));
        click(*window, pixel(*window, {1500, 0}) + QPoint(0, -1));
        const QPlainTextEdit* list = pointEditor(*window);
        QVERIFY(list->textCursor().blockNumber() > 1000);
        const QRect seen = list->viewport()->rect();
        QVERIFY(std::abs(list->cursorRect().center().y() - seen.center().y()) < seen.height() / 4);
    }

    void otherMotionsSelectNothing()
    {
        const QPoint peak = pixel(*window, {9.5, 100}) + QPoint(0, 4);
        click(*window, peak, Qt::RightButton);
        QCOMPARE(selected(*window), QString());
        const QRectF plot = frame(*window).area;
        click(*window, plot.bottomLeft().toPoint() + QPoint(40, 15)); // the numbers of the axis
        QCOMPARE(selected(*window), QString());

        QWidget* viewport = chartView(*window)->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, peak);
        QTest::mouseMove(viewport, peak + QPoint(60, 90));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, peak + QPoint(60, 90));
        QCOMPARE(selected(*window), QString());
        QVERIFY(chartView(*window)->chart()->isZoomed());
    }

    void clickWithoutPointsSelectsNothing()
    {
        setPoints(*window, u"E I"_s);
        click(*window, frame(*window).area.center().toPoint());
        QCOMPARE(selected(*window), QString());
    }

    void onlyWhatIsSeenCanBeClicked()
    {
        chartView(*window)->chart()->axes(Qt::Horizontal).constFirst()->setRange(9.9, 11);
        click(*window, frame(*window).area.topLeft().toPoint() + QPoint(2, 2)); // near 9.8
        QCOMPARE(selected(*window), u"10.0 50"_s);
    }

    void lineWithTheCursorIsMarked()
    {
        QPlainTextEdit* list = pointEditor(*window);
        QVERIFY(!isMarked(*window, {9, 0})); // nobody has touched the list
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Down);
        QVERIFY(isMarked(*window, {9, 0}));
        QTest::keyClick(list, Qt::Key_Down);
        QVERIFY(!isMarked(*window, {9, 0}));
        QVERIFY(isMarked(*window, {9.5, 100}));
        QTest::keyClick(list, Qt::Key_Down); // a line without a point
        QVERIFY(!isMarked(*window, {9.5, 100}));
    }

    void markFollowsTyping()
    {
        QPlainTextEdit* list = pointEditor(*window);
        list->moveCursor(QTextCursor::End);
        QVERIFY(isMarked(*window, {11, 0}));
        QTest::keyClick(list, Qt::Key_Backspace);
        typeInto(list, u"75"_s);
        QVERIFY(isMarked(*window, {11, 75}));
        typeInto(list, u" 1"_s);
        QVERIFY(!isMarked(*window, {11, 75}));
    }

    void firstLineIsMarkedOnceTheListHasTheFocus()
    {
        setPoints(*window, u"9 5\n10 6"_s);
        child<QWidget>(*window, "lineEditTitle")->setFocus();
        QVERIFY(!isMarked(*window, {9, 5}));
        pointEditor(*window)->setFocus();
        QVERIFY(isMarked(*window, {9, 5}));
    }

    void firstLineIsMarkedWhenItIsFound()
    {
        setPoints(*window, u"9 5\n10 6"_s);
        QTest::keyClick(window, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), u"9.1"_s);
        QCOMPARE(selected(*window), u"9 5"_s);
        QVERIFY(isMarked(*window, {9, 5}));
    }

    void lineWithNoBreakSpaceIsMarked()
    {
        setPoints(*window, u"9 5\n9.5\u00a030\n10 60"_s);
        click(*window, pixel(*window, {9.5, 30}));
        QVERIFY(isMarked(*window, {9.5, 30}));
    }

    void markOutsideOfAZoomIsNotSeen()
    {
        click(*window, pixel(*window, {9.5, 100}) + QPoint(0, 1));
        QVERIFY(isMarked(*window, {9.5, 100}));
        chartView(*window)->chart()->axes(Qt::Horizontal).constFirst()->setRange(9.9, 11);
        QVERIFY(!isMarked(*window, {9.9, 100}));
    }

private:
    SpectrumWindow* window = nullptr;
};

QTEST_MAIN(TestPointListLink)
#include "tst_pointlistlink.moc"
