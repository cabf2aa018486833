// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QContextMenuEvent>
#include <QDockWidget>
#include <QMenu>
#include <QTest>
#include <QTextEdit>
#include <QToolBar>

using TestSupport::child;
using namespace Qt::StringLiterals;

/// The form and the tool bar stay in the window, whatever a hand slips on.
class TestFormDock : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void closedFormIsDockedAgain()
    {
        dock()->setFloating(true);
        QVERIFY(dock()->isWindow());
        auto* name = child<QTextEdit>(*window, "lineEditSpecies");
        name->setPlainText(u"water"_s);
        dock()->close(); // toolkits differ in whether they refuse
        QTRY_VERIFY(!dock()->isFloating() && dock()->isVisible());
        QCOMPARE(window->dockWidgetArea(dock()), Qt::LeftDockWidgetArea);
        QCOMPARE(name->toPlainText(), u"water"_s);
        QVERIFY(name->isVisible());
    }

    void dockedFormCannotBeClosedEither()
    {
        dock()->close();
        QTRY_VERIFY(dock()->isVisible());
    }

    void floatingFormDoesNotHinderTheEnd()
    {
        dock()->setFloating(true);
        QVERIFY(dock()->close()); // the toolkit closes windows in no certain order, up to a refusal
        QApplication::closeAllWindows();
        QVERIFY(!window->isVisible());
        QCoreApplication::processEvents();
        QVERIFY(!window->isVisible());
    }

    void formStandsLeftOrRight()
    {
        QCOMPARE(dock()->allowedAreas(), Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    }

    void formTakesAThirdOfSmallWindowsOnly_data()
    {
        QTest::addColumn<int>("windowWidth");
        QTest::addColumn<int>("formWidth");
        QTest::newRow("initial") << 1272 << 424;
        QTest::newRow("small") << 1110 << 370;
        QTest::newRow("large") << 1920 << 424;
    }

    void formTakesAThirdOfSmallWindowsOnly()
    {
        QFETCH(int, windowWidth);
        window->resize(windowWidth, 873);
        QCoreApplication::processEvents();
        QTEST(dock()->width(), "formWidth");
        window->resize(800, 873);
        QCoreApplication::processEvents();
        window->resize(windowWidth, 873);
        QCoreApplication::processEvents();
        QTEST(dock()->width(), "formWidth");
    }

    void movedEdgeStaysWhereItIs()
    {
        const QPoint edge(dock()->geometry().right() + 2, dock()->geometry().center().y());
        QTest::mousePress(window.get(), Qt::LeftButton, {}, edge);
        QTest::mouseMove(window.get(), edge + QPoint(40, 0));
        QTest::mouseMove(window.get(), edge + QPoint(80, 0));
        QCoreApplication::processEvents();
        QTest::mouseRelease(window.get(), Qt::LeftButton, {}, edge + QPoint(80, 0));
        QTRY_VERIFY(dock()->width() > 490);
        const int width = dock()->width();
        window->resize(1600, 873);
        QCoreApplication::processEvents();
        QCOMPARE(dock()->width(), width);
    }

    void toolBarCannotBeHidden()
    {
        const auto* bar = child<QToolBar>(*window, "toolBar");
        QVERIFY(!bar->isFloatable());
        const QPoint place = bar->rect().center();
        QContextMenuEvent request(QContextMenuEvent::Mouse, place, bar->mapToGlobal(place));
        QWidget* target = window->childAt(bar->mapTo(window.get(), place));
        QCoreApplication::sendEvent(target, &request);
        QCoreApplication::processEvents();
        QCOMPARE(QApplication::activePopupWidget(), nullptr);
        QVERIFY(window->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly).isEmpty());
    }

    void keysOfTheToolBarWork()
    {
        auto* name = child<QTextEdit>(*window, "lineEditSpecies");
        name->setPlainText(u"H2O"_s);
        name->setFocus();
        name->selectAll();
        QTest::keyClick(name, Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(name->property("cleanedHtml").toString(), u"<sub>H2O</sub>"_s);
    }

private:
    [[nodiscard]] QDockWidget* dock() const { return child<QDockWidget>(*window, "speciesDock"); }
};

QTEST_MAIN(TestFormDock)
#include "tst_formdock.moc"
