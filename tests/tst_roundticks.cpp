// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/roundticks.h"
#include "spectrum/spectrumchartview.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/spectrumtest.h"

#include <QGraphicsTextItem>
#include <QTest>
#include <QtCharts/QChart>
#include <QtCharts/QValueAxis>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

QValueAxis* axis(const SpectrumWindow& window, Qt::Orientation orientation)
{
    return qobject_cast<QValueAxis*>(chartView(window)->chart()->axes(orientation).constFirst());
}

/// The numbers at the axes, as they are painted, by the axis they stand at.
QStringList labels(const SpectrumWindow& window, Qt::Orientation orientation)
{
    QCoreApplication::processEvents();
    const QRectF plot = chartView(window)->chart()->plotArea();
    QStringList texts;
    for (const QGraphicsItem* item : chartView(window)->scene()->items(Qt::AscendingOrder)) {
        const auto* text = qgraphicsitem_cast<const QGraphicsTextItem*>(item);
        bool isNumber = false;
        if (text != nullptr && text->isVisible())
            text->toPlainText().toDouble(&isNumber);
        if (!isNumber)
            continue;
        const QPointF centre = text->sceneBoundingRect().center();
        if ((centre.y() > plot.bottom()) == (orientation == Qt::Horizontal))
            texts.append(text->toPlainText());
    }
    std::sort(texts.begin(), texts.end(),
              [](const QString& a, const QString& b) { return a.toDouble() < b.toDouble(); });
    return texts;
}

} // namespace

/// Ticks of the chart's axes on round numbers.
class TestRoundTicks : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void stepIsRound_data()
    {
        QTest::addColumn<double>("lowest");
        QTest::addColumn<double>("highest");
        QTest::addColumn<int>("most");
        QTest::addColumn<double>("step");
        const double inf = std::numeric_limits<double>::infinity();
        QTest::newRow("spectrum of some eV") << 9.2 << 11.272 << 11 << 0.2;
        QTest::newRow("less room") << 9.2 << 11.272 << 10 << 0.5;
        QTest::newRow("intensities") << 0.0 << 1000.0 << 6 << 200.0;
        QTest::newRow("ends count") << 0.0 << 10.0 << 11 << 1.0;
        QTest::newRow("one fewer") << 0.0 << 10.0 << 10 << 2.0;
        QTest::newRow("below and above 0") << -3.0 << 4.0 << 4 << 2.0;
        QTest::newRow("below 0") << -1000.0 << -1.0 << 5 << 200.0;
        QTest::newRow("two decimals") << 9.2 << 9.29 << 12 << 0.01;
        QTest::newRow("labels would repeat") << 9.2 << 9.23 << 12 << 0.01;
        QTest::newRow("they have to repeat") << 9.2001 << 9.2091 << 5 << 0.002;
        QTest::newRow("very large") << 0.0 << 1e300 << 5 << 5e299;
        QTest::newRow("very small") << 0.0 << 1e-200 << 5 << 5e-201;
        QTest::newRow("one number") << 5.0 << 5.0 << 5 << 0.0;
        QTest::newRow("the wrong way round") << 5.0 << 4.0 << 5 << 0.0;
        QTest::newRow("too narrow for its numbers") << 1e6 << 1e6 + 1e-9 << 5 << 0.0;
        QTest::newRow("nearly nothing") << 0.0 << 5e-324 << 5 << 0.0;
        QTest::newRow("not finite") << 0.0 << inf << 5 << 0.0;
        QTest::newRow("wider than numbers reach") << -1.7e308 << 1.7e308 << 5 << 0.0;
        QTest::newRow("no room") << 0.0 << 1.0 << 0 << 0.0;
    }
    void stepIsRound()
    {
        QFETCH(double, lowest);
        QFETCH(double, highest);
        QFETCH(int, most);
        QTEST(RoundTicks::step(lowest, highest, most), "step");
    }

    void labelsAreRoundNumbersInTheRange()
    {
        SpectrumWindow* window = show();
        setPoints(*window, u"9.204 0\n9.6 1000\n11.272 3"_s);
        QCOMPARE(axis(*window, Qt::Horizontal)->min(), 9.204);
        QCOMPARE(axis(*window, Qt::Horizontal)->max(), 11.272);
        const QStringList energies = labels(*window, Qt::Horizontal);
        QVERIFY2(energies.size() >= 3, qPrintable(energies.join(u' ')));
        for (const QString& energy : energies) {
            const double tenths = energy.toDouble() * 10;
            QVERIFY2(std::abs(tenths - std::round(tenths)) < 1e-9, qPrintable(energy));
        }
        const QStringList intensities = labels(*window, Qt::Vertical);
        QCOMPARE(intensities.constFirst(), u"0.00"_s);
        QCOMPARE(intensities.constLast(), u"1000.00"_s);
    }

    void ticksAtBothEndsOfTheRangeAreKept()
    {
        SpectrumWindow* window = show();
        setPoints(*window, u"9.2 0\n10.2 0.3"_s);
        const QStringList energies = labels(*window, Qt::Horizontal);
        QCOMPARE(energies.constFirst(), u"9.20"_s);
        QCOMPARE(energies.constLast(), u"10.20"_s);
    }

    void noLabelIsSeenTwice()
    {
        SpectrumWindow* window = show();
        setPoints(*window, u"9.2 0\n9.24 0.05"_s);
        for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
            QStringList texts = labels(*window, orientation);
            QVERIFY(texts.size() >= 2);
            QCOMPARE(texts.removeDuplicates(), 0);
        }
    }

    void deepZoomAndItsEndLeaveFewTicks()
    {
        SpectrumWindow* window = show();
        setPoints(*window, u"1 0\n1500 1000000"_s);
        QValueAxis* energy = axis(*window, Qt::Horizontal);
        energy->setRange(700, 700.001);
        energy->setRange(1, 1500);
        const QStringList texts = labels(*window, Qt::Horizontal);
        QVERIFY2(texts.size() >= 2 && texts.size() <= 12, qPrintable(texts.join(u' ')));
    }

    void widerChartHasMoreTicks()
    {
        SpectrumWindow* window = show();
        setPoints(*window, u"1000 0\n1020 1000"_s);
        document->resize(700, 700);
        const qsizetype narrow = labels(*window, Qt::Horizontal).size();
        document->resize(1500, 700);
        QVERIFY(labels(*window, Qt::Horizontal).size() > narrow);
    }

    void singlePointHasTicksOfTheToolkit()
    {
        SpectrumWindow* window = show();
        setPoints(*window, u"1 2\n3 4"_s);
        setPoints(*window, u"5 6"_s);
        QCOMPARE(axis(*window, Qt::Horizontal)->tickType(), QValueAxis::TicksFixed);
        setPoints(*window, u"1 2\n3 4"_s);
        QCOMPARE(axis(*window, Qt::Horizontal)->tickType(), QValueAxis::TicksDynamic);
    }
};

QTEST_MAIN(TestRoundTicks)
#include "tst_roundticks.moc"
