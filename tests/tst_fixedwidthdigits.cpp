// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/spectrumtest.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

/// Where the character before which there are @p column others begins in the line.
int leftOf(const QPlainTextEdit& list, int line, int column)
{
    QTextCursor cursor(list.document()->findBlockByNumber(line));
    cursor.setPosition(cursor.position() + column);
    return list.cursorRect(cursor).left();
}

} // namespace

/// The columns of the point list are columns.
class TestFixedWidthDigits : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        usualFont = QApplication::font();
        QVERIFY2(QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).fixedPitch(),
                 "no font of fixed width is installed");
    }

    void cleanup() override
    {
        QApplication::setFont(usualFont);
        SpectrumTest::cleanup();
    }

    void columnsAreColumns()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        list->setPlainText(u"11.1111 111.11\n 8.8888 -88.88\n 1e1;;  .5   "_s);
        for (int column = 0; column <= 13; ++column) {
            QCOMPARE(leftOf(*list, 1, column), leftOf(*list, 0, column));
            QCOMPARE(leftOf(*list, 2, column), leftOf(*list, 0, column));
        }
    }

    void sizeIsThatOfTheWindow()
    {
        auto* window = show();
        auto* list = pointEditor(*window);
        QCOMPARE(list->font().pointSizeF(), window->font().pointSizeF());
        QFont large = window->font();
        large.setPointSizeF(20);
        document->setFont(large);
        QCOMPARE(list->font().pointSizeF(), 20);
        QVERIFY(QFontInfo(list->font()).fixedPitch());
    }

    void fontOfTheDesktopIsFollowed()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        const int before = list->minimumWidth();
        QFont large = usualFont;
        large.setPointSizeF(2 * usualFont.pointSizeF());
        QApplication::setFont(large);
        QCoreApplication::processEvents();
        QCOMPARE(list->font().pointSizeF(), large.pointSizeF());
        QVERIFY(QFontInfo(list->font()).fixedPitch());
        QVERIFY2(list->minimumWidth() > 3 * before / 2, qPrintable(QString::number(before)));
    }

    void usualLineFitsIntoTheSmallestList()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        list->setPlainText(u"12.3456 1000.00"_s);
        QVERIFY(leftOf(*list, 0, 15) - leftOf(*list, 0, 0) <= list->minimumWidth());
    }

private:
    QFont usualFont;
};

QTEST_MAIN(TestFixedWidthDigits)
#include "tst_fixedwidthdigits.moc"
