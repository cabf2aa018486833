// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumchartview.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/spectrumtest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTest>
#include <QXmlStreamReader>
#include <QtCharts/QChart>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

const QMimeData& clipboard()
{
    return *QGuiApplication::clipboard()->mimeData();
}

void copyChart(const SpectrumWindow& window)
{
    chartView(window)->setFocus();
    QTest::keyClick(chartView(window), Qt::Key_C, Qt::ControlModifier);
}

QImage copiedPixels()
{
    return clipboard().imageData().value<QImage>();
}

/// How many of an image's pixels have about this colour.
qsizetype pixelsLike(const QImage& image, QColor colour)
{
    constexpr int tolerance = 40;
    qsizetype found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor seen = image.pixelColor(x, y);
            if (std::abs(seen.red() - colour.red()) < tolerance &&
                std::abs(seen.green() - colour.green()) < tolerance &&
                std::abs(seen.blue() - colour.blue()) < tolerance)
                ++found;
        }
    }
    return found;
}

const QColor curveColour(0x20, 0x9f, 0xdf);

} // namespace

/// The chart as a picture on the clipboard.
class TestChartPicture : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        SpectrumTest::init();
        QGuiApplication::clipboard()->clear();
        window = show();
        setPoints(*window, u"9 0\n9.5 100\n10 50\n11 0"_s);
    }

    void keyForCopyingPutsTwiceTheSizeOnTheClipboard()
    {
        copyChart(*window);
        const QImage image = copiedPixels();
        QCOMPARE(image.size(), (chartView(*window)->chart()->size() * 2).toSize());
        QCOMPARE(image.devicePixelRatio(), 1.0);
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
        QVERIFY(pixelsLike(image, curveColour) > image.width());
        QCOMPARE(QImage::fromData(clipboard().data(u"image/png"_s), "PNG"), image);
    }

    void drawingHasTheCurveAsOneLineAndTheTexts()
    {
        copyChart(*window);
        QXmlStreamReader xml(clipboard().data(u"image/svg+xml"_s));
        QStringList texts;
        qsizetype linesOfFourPoints = 0;
        qsizetype pictures = 0;
        while (!xml.atEnd()) {
            xml.readNext();
            if (!xml.isStartElement())
                continue;
            if (xml.name() == "polyline"_L1) {
                const QString corners = xml.attributes().value("points"_L1).toString();
                linesOfFourPoints += corners.split(u' ', Qt::SkipEmptyParts).size() == 4 ? 1 : 0;
            }
            pictures += xml.name() == "image"_L1 ? 1 : 0;
            if (xml.name() == "text"_L1)
                texts.append(xml.readElementText().trimmed());
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QCOMPARE(linesOfFourPoints, 1);
        QCOMPARE(pictures, 0);
        QVERIFY(texts.join(u' ').contains(u"\u03bd / eV"_s)); // in pieces, for its fonts
        QVERIFY(texts.contains(u"Intensity / arb. unit"_s));
        QVERIFY(texts.contains(u"100.00"_s));
    }

    void marksOfTheViewAreNotInThePicture()
    {
        copyChart(*window);
        const QImage before = copiedPixels();
        QTest::keyClick(chartView(*window), Qt::Key_Right); // shows the place of the read-out
        pointEditor(*window)->moveCursor(QTextCursor::End); // marks a point
        copyChart(*window);
        QCOMPARE(copiedPixels(), before);
    }

    void zoomIsCopiedAsItIsSeen()
    {
        copyChart(*window);
        const QImage whole = copiedPixels();
        QTest::keyClick(chartView(*window), Qt::Key_Plus);
        copyChart(*window);
        QVERIFY(copiedPixels() != whole);
    }

    void listKeepsItsOwnCopying()
    {
        QPlainTextEdit* list = pointEditor(*window);
        list->setFocus();
        list->selectAll();
        QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(!clipboard().hasImage());
        QCOMPARE(clipboard().text(), u"9 0\n9.5 100\n10 50\n11 0"_s);
    }

private:
    SpectrumWindow* window = nullptr;
};

QTEST_MAIN(TestChartPicture)
#include "tst_chartpicture.moc"
