// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/spectrumtest.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

constexpr auto allMarked = "x";

/// Whether any pixel has a colour of its own and not a shade of grey.
bool hasColour(const QImage& picture, const QRect& area)
{
    constexpr int shades = 40; // some fonts are smoothed in colour, a little
    const QRect inside = area.intersected(picture.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (std::abs(qRed(pixel) - qBlue(pixel)) > shades)
                return true;
        }
    }
    return false;
}

/// For each line that can be seen whether it is coloured: "x" or ".".
QString marksOf(const SpectrumWindow& window)
{
    auto* list = pointEditor(window);
    const QImage picture = list->viewport()->grab().toImage();
    QString marks;
    for (QTextBlock block = list->cursorForPosition(QPoint(0, 0)).block(); block.isValid();
         block = block.next()) {
        QRect line = list->cursorRect(QTextCursor(block));
        if (line.top() > picture.height())
            break;
        // Without the rows that the letters of the neighbours reach into.
        line.adjust(0, 2, picture.width(), -2);
        marks += QLatin1StringView(hasColour(picture, line) ? allMarked : ".");
    }
    return marks;
}

QPalette paletteOf(const QColor& text, const QColor& base)
{
    QPalette palette(base, base);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    return palette;
}

} // namespace

/// Lines of the point list that are no points are coloured, as far as they can be seen.
class TestOtherLineMarks : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void linesThatAreNoPointsLookIt_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("marks");
        QTest::newRow("points") << u"10 5\n11;6\n 1e1\t2E-3 "_s << u"..."_s;
        QTest::newRow("empty and blank") << u"\n10 5\n \t\n\n"_s << u"....."_s;
        QTest::newRow("heading") << u"E / eV, I\n10 5"_s << u"x."_s;
        QTest::newRow("decimal commas") << u"10,5 2,0\n11,5 3,0"_s << u"xx"_s;
        QTest::newRow("three columns") << u"10 5 1\n11 6"_s << u"x."_s;
        QTest::newRow("one number") << u"10 5\n11\n12 6"_s << u".x."_s;
        QTest::newRow("comments between") << u"# x\n\n10 5\n# y\n# z\n11 6\nz"_s << u"x..xx.x"_s;
        QTest::newRow("no-break space") << u"10\u00a05\n11:5"_s << u".x"_s;
    }
    void linesThatAreNoPointsLookIt()
    {
        QFETCH(QString, text);
        const auto* window = show();
        pointEditor(*window)->setPlainText(text);
        QTEST(marksOf(*window), "marks");
    }

    void everyKeyCounts()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        QCOMPARE(marksOf(*window), u"."_s);
        const QList<std::pair<QString, QString>> keys{
            {u"1"_s, u"x"_s},     {u"0 "_s, u"x"_s},  {u"5"_s, u"."_s},  {u"e"_s, u"x"_s},
            {u"1"_s, u"."_s},     {u"\r"_s, u".."_s}, {u" "_s, u".."_s}, {u"#"_s, u".x"_s},
            {u"\b\b"_s, u".."_s}, {u"\b"_s, u"."_s},  {u" 7"_s, u"x"_s}};
        for (const auto& [typed, marks] : keys) {
            QTest::keyClicks(list, typed);
            QCOMPARE(marksOf(*window), marks);
        }
        QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(list->toPlainText(), u"10 5e1"_s);
        QCOMPARE(marksOf(*window), u"."_s);
        QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(marksOf(*window), u"x"_s);
    }

    void lineBrokenWithinABlockIsTwoLines()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        QTest::keyClicks(list, u"10 5"_s);
        QTest::keyClick(list, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(list, u"11 6"_s);
        QCOMPARE(list->toPlainText(), u"10 5\n11 6"_s);
        QCOMPARE(list->blockCount(), 1);
        QVERIFY(!hasColour(list->viewport()->grab().toImage(), list->viewport()->rect()));
        QTest::keyClicks(list, u"x"_s);
        QVERIFY(hasColour(list->viewport()->grab().toImage(), list->viewport()->rect()));
    }

    void commandsAndTheirUndoingAreFollowed()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        QTest::keyClicks(list, u"1,5 2,0"_s);
        QCOMPARE(marksOf(*window), u"x"_s);
        QTest::mouseClick(child<QPushButton>(*window, "buttonCommaToDot"), Qt::LeftButton);
        QCOMPARE(marksOf(*window), u"."_s);
        QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(marksOf(*window), u"x"_s);
        list->setPlainText(u"1 2\n#"_s);
        QCOMPARE(marksOf(*window), u".x"_s);
        list->setPlainText(u"#\n1 2"_s);
        QCOMPARE(marksOf(*window), u"x."_s);
    }

    void scrollingAndResizingAreFollowed()
    {
        auto* window = show();
        auto* list = pointEditor(*window);
        QString text = u"10 5\n"_s.repeated(300);
        list->setPlainText(text + u"#\n"_s + text + u"#\n10 5\n"_s);
        QVERIFY(!marksOf(*window).contains(u'x'));
        list->verticalScrollBar()->setValue(300);
        const QString scrolled = marksOf(*window);
        QVERIFY2(scrolled.startsWith(u"x."_s) && scrolled.count(u'x') == 1, qPrintable(scrolled));
        document->resize(document->width(), document->height() + 200);
        QVERIFY(marksOf(*window).size() > scrolled.size());
        QTest::keyClick(list, Qt::Key_End, Qt::ControlModifier);
        QVERIFY2(marksOf(*window).endsWith(u"x.."_s), qPrintable(marksOf(*window)));
    }

    void sizeThatShowsMoreIsFollowed()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        list->setPlainText(u"10 5\n"_s.repeated(20) + u"#\n"_s.repeated(100));
        const qsizetype before = marksOf(*window).count(u'x');
        document->resize(document->width(), document->height() + 200);
        QTRY_VERIFY(marksOf(*window).count(u'x') > before);
    }

    void palettesAreFollowed()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        list->setPlainText(u"#\n10 5"_s);
        QList<QColor> colours;
        for (const auto& [text, base] :
             {std::pair(Qt::black, Qt::white), std::pair(Qt::white, Qt::black)}) {
            list->setPalette(paletteOf(text, base));
            QCOMPARE(marksOf(*window), u"x."_s);
            colours += list->extraSelections().constFirst().format.foreground().color();
        }
        QVERIFY(colours.first().lightness() + 20 < colours.last().lightness());
    }

    void onlyWhatIsSeenIsLookedAt()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        list->setPlainText(u"#\n10 5\n"_s.repeated(5'000));
        const qsizetype lines = marksOf(*window).size();
        QVERIFY(lines > 10 && lines < 200);
        QVERIFY(list->extraSelections().size() <= lines);
    }
};

QTEST_MAIN(TestOtherLineMarks)
#include "tst_otherlinemarks.moc"
