// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumtabs.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>

#include <algorithm>

using TestSupport::child;
using namespace Qt::StringLiterals;

/// The tabs of the spectra: titles as they are, of bounded width, and no way to lose a spectrum by
/// a slip of the finger.
class TestSpectrumTabs : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void textIsOneLineOfTheTitle_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("short") << u"TPES"_s << u"TPES"_s;
        QTest::newRow("ampersand") << u"R&D, S && T"_s << u"R&&D, S &&&& T"_s;
        QTest::newRow("lines") << u"one\ntwo\u2028three"_s << u"one two three"_s;
        QTest::newRow("markup") << u"<b>x</b>"_s << u"<b>x</b>"_s;
        QTest::newRow("nothing") << QString() << QString();
        QTest::newRow("place of a mark") << u"A [*] B"_s << u"A [*] B"_s;
    }

    void textIsOneLineOfTheTitle()
    {
        QFETCH(QString, title);
        QTEST(SpectrumTabs::tabText(title, QFontMetrics(QApplication::font()), 1000), "text");
    }

    void longTextEndsInAnEllipsis()
    {
        const QFontMetrics metrics(QApplication::font());
        for (const qsizetype length : {50, 90, 5000}) {
            const QString text = SpectrumTabs::tabText(QString(length, u'm'), metrics, 150);
            QVERIFY(text.startsWith("mmm"_L1) && text.endsWith(u'\u2026'));
            QVERIFY(metrics.horizontalAdvance(text) <= 150);
        }
    }

    void toolTipTellsTheTitleAsItIs()
    {
        QCOMPARE(SpectrumTabs::toolTip(u"a < b & c"_s), u"<p>a &lt; b &amp; c</p>"_s);
        QCOMPARE(SpectrumTabs::toolTip(QString()), QString());
        const QString endless = SpectrumTabs::toolTip(QString(400'000, u'm'));
        QVERIFY(endless.size() < 1000 && endless.contains(u'\u2026'));
    }

    void tabsShowTheBeginningOfLongTitles()
    {
        const QString title = u"Threshold photoelectron spectrum of benzene, number %1"_s;
        QStringList titles;
        for (int number = 0; number < 12; ++number)
            titles.append(title.arg(number));
        open(titles);
        const QStringList opened = TestSupport::spectrumTitles(*window);
        for (int tab = 0; tab < titles.size(); ++tab) {
            QVERIFY(bar()->tabText(tab).startsWith("Threshold p"_L1));
            QVERIFY(bar()->tabText(tab).endsWith(u'\u2026'));
            QCOMPARE(bar()->tabToolTip(tab), SpectrumTabs::toolTip(opened[tab]));
        }
        int visible = 0;
        for (int tab = 0; tab < titles.size(); ++tab)
            visible += bar()->rect().contains(bar()->tabRect(tab)) ? 1 : 0;
        QCOMPARE(visible, 12);
        QAccessibleInterface* tabs = QAccessible::queryAccessibleInterface(bar());
        QCOMPARE(tabs->child(0)->text(QAccessible::Name), opened[0]);
    }

    void tabFollowsTheTitle()
    {
        open({u"one"_s, u"two"_s});
        auto* field =
            child<QTextEdit>(*TestSupport::spectra(*window).constFirst(), "lineEditTitle");
        TestSupport::typeInto(*field, u"R&D"_s);
        QCOMPARE(bar()->tabText(0), u"R&&D"_s);
        QCOMPARE(bar()->tabToolTip(0), u"<p>R&amp;D</p>"_s);
        QCOMPARE(TestSupport::subWindows(*window).constFirst()->windowTitle(), u"R&D"_s);
        field->clear();
        QCOMPARE(bar()->tabText(0), QMdiArea::tr("(Untitled)"));
        QCOMPARE(bar()->tabText(1), u"two"_s);
    }

    void titleHasTheRoomOfTheIcon()
    {
        const QIcon before = QApplication::windowIcon();
        QPixmap square(16, 16);
        square.fill(Qt::red);
        QApplication::setWindowIcon(QIcon(square));
        bar()->setFont(QFont(bar()->font().family(), 6)); // smaller than an icon
        open({u"one"_s, u"two"_s, u"three"_s, u"four"_s, u"five"_s, u"six"_s});
        QApplication::setWindowIcon(before);
        QCoreApplication::processEvents();
        QVERIFY(bar()->tabIcon(0).isNull());
        QVERIFY(bar()->tabIcon(1).isNull());
        // Tabs that became lower meanwhile would leave others to be seen below the first.
        const auto* area = child<QMdiArea>(*window, "mdiArea");
        QCOMPARE(area->activeSubWindow()->size(), area->viewport()->size());
    }

    void tabOfAnEndlessTitleIsElided()
    {
        open({u"one"_s});
        SpectrumWindow* spectrum = TestSupport::spectra(*window).constFirst();
        spectrum->setWindowTitle(QString(5000, u'x'));
        QVERIFY(bar()->tabText(0).size() < 100);
        spectrum->setWindowTitle(u"R&D"_s);
        QCOMPARE(bar()->tabText(0), u"R&&D"_s);
    }

    void ampersandIsNoKey()
    {
        open({u"one"_s, u"R&D"_s});
        child<QMdiArea>(*window, "mdiArea")
            ->setActiveSubWindow(TestSupport::subWindows(*window).constFirst());
        QCOMPARE(bar()->currentIndex(), 0);
        QTest::keyClick(window.get(), Qt::Key_D, Qt::AltModifier);
        QCOMPARE(bar()->currentIndex(), 0);
    }

    void tabGoesWithItsSpectrum()
    {
        open({u"one"_s, u"two"_s, u"three"_s});
        TestSupport::subWindows(*window).at(1)->close();
        QTRY_COMPARE(bar()->count(), 2);
        auto* last = child<QTextEdit>(*TestSupport::spectra(*window).at(1), "lineEditTitle");
        last->setPlainText(u"four"_s);
        QCOMPARE(bar()->tabText(0), u"one"_s);
        QCOMPARE(bar()->tabText(1), u"four"_s);
    }

    void middleClickClosesNothing()
    {
        open({u"one"_s, u"two"_s});
        for (int tab : {0, 1}) {
            QTest::mouseClick(bar(), Qt::MiddleButton, {}, bar()->tabRect(tab).center());
            QTest::mouseDClick(bar(), Qt::MiddleButton, {}, bar()->tabRect(tab).center());
        }
        QCoreApplication::processEvents();
        QCOMPARE(TestSupport::spectrumTitles(*window), (QStringList{u"one"_s, u"two"_s}));
        QVERIFY(!window->windowTitle().endsWith(u'*'));
        QTest::mouseClick(bar(), Qt::LeftButton, {}, bar()->tabRect(1).center());
        QCOMPARE(bar()->currentIndex(), 1);
    }

    void menuOfTheTabCloses()
    {
        open({u"one"_s, u"two"_s});
        const QPoint place = bar()->tabRect(0).center();
        QContextMenuEvent request(QContextMenuEvent::Mouse, place, bar()->mapToGlobal(place));
        dialogs->expect([](QWidget& popup) {
            const QList<QAction*> actions = static_cast<QMenu&>(popup).actions();
            const auto close =
                std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
                    return action->text().contains("Close"_L1);
                });
            QVERIFY(close != actions.end());
            popup.close();
            (*close)->trigger();
        });
        QCoreApplication::sendEvent(bar(), &request);
        QTRY_COMPARE(TestSupport::spectrumTitles(*window), QStringList{u"two"_s});
        QVERIFY(dialogs->passed());
    }

private:
    void open(const QStringList& titles)
    {
        QVERIFY(window->openEntry(
            sandbox->write(u"entry.json"_s, TestSupport::speciesFile(u"benzene"_s, titles))));
        QCoreApplication::processEvents();
        QCOMPARE(bar()->count(), titles.size());
    }

    [[nodiscard]] QTabBar* bar() const
    {
        return child<QMdiArea>(*window, "mdiArea")->findChild<QTabBar*>();
    }
};

QTEST_MAIN(TestSpectrumTabs)
#include "tst_spectrumtabs.moc"
