// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/statustest.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QDockWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

const QString usual = u"2 points, 10 to 10.5 eV, largest intensity 2"_s;
const QString notYet = u"Points not yet taken over"_s;

} // namespace

/// What the status bar says of points: true at every painting, whatever was done before.
class TestStatusPoints : public StatusTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithNothing()
    {
        settle();
        for (const char* label :
             {"statusSpectrum", "statusTyped", "statusFetching", "statusClosed", "statusLast"})
            QCOMPARE(said(label), QString());
    }

    void openedSpectrumIsSummedUp()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        settle();
        QCOMPARE(spectrum(), usual);
        QCOMPARE(typed(), QString());
    }

    void newSpectrumHasNoPoints()
    {
        trigger(*window, "actionNew");
        settle();
        QCOMPARE(spectrum(), u"No points"_s);
        QCOMPARE(typed(), QString());
    }

    void typedPointsCountLater()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        settle();
        auto* list = points(0);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_End, Qt::ControlModifier);
        QSignalSpy taken(spectra(*window).constFirst()->model(),
                         &SpectrumModel::spectrumDataChanged);
        QTest::keyClick(list, Qt::Key_Return);
        settle();
        QCOMPARE(typed(), notYet); // from the first key on
        QTest::keyClicks(list, u"11 7"_s);
        QTest::keyClick(list, Qt::Key_Return);
        QTest::keyClicks(list, u"x"_s);
        settle();
        QCOMPARE(typed(), notYet);
        QCOMPARE(spectrum(), usual);
        QTRY_COMPARE_WITH_TIMEOUT(taken.size(), 1, patience);
        settle();
        QCOMPARE(typed(), QString());
        QCOMPARE(spectrum(), u"3 points, 1 line not understood (line 4), 10 to 11 eV, "
                             "largest intensity 7"_s);
    }

    void savingDoesNotHideWhatIsNotSaved()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        typePoint();
        QTest::keyClick(points(0), Qt::Key_S, Qt::ControlModifier);
        settle();
        QCOMPARE(typed(), notYet);
        QVERIFY(last().startsWith("Entry saved at "_L1));
    }

    void spectrumInFrontIsMeant()
    {
        openThreeKinds();
        settle();
        QCOMPARE(spectrum(), usual);
        auto* tabs = child<QMdiArea>(*window, "mdiArea")->findChild<QTabBar*>();
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
        settle();
        QCOMPARE(spectrum(), u"No points"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        settle();
        QCOMPARE(spectrum(), u"1 point, 5 eV, largest intensity 6"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        settle();
        QCOMPARE(spectrum(), usual);
    }

    void closingShowsTheNext()
    {
        openThreeKinds();
        settle();
        trigger(*window, "actionDelete");
        settle();
        QCOMPARE(spectrum(), u"No points"_s);
        subWindows(*window).at(1)->close(); // behind
        settle();
        QCOMPARE(spectrum(), u"No points"_s);
        QTest::keyClick(window.get(), Qt::Key_W, Qt::ControlModifier);
        trigger(*window, "actionDelete");
        settle();
        QCOMPARE(subWindows(*window).size(), 0);
        QCOMPARE(spectrum(), QString());
    }

    void closedWithItsTypedPoints()
    {
        openEntry(u"a.json"_s, {u"one"_s, u"two"_s});
        typePoint();
        QCOMPARE(typed(), notYet);
        trigger(*window, "actionDelete");
        settle();
        QCOMPARE(typed(), QString());
        QCOMPARE(spectrum(), usual);
    }

    void otherSpectrumMayHoldTypedPoints()
    {
        openEntry(u"a.json"_s, {u"one"_s, u"two"_s});
        typePoint();
        QSignalSpy taken(spectra(*window).constFirst()->model(),
                         &SpectrumModel::spectrumDataChanged);
        QTest::keyClick(points(0), Qt::Key_Tab, Qt::ControlModifier);
        settle();
        QCOMPARE(spectrum(), usual);
        QCOMPARE(typed(), notYet); // a copy or a save would still miss them
        QTRY_COMPARE_WITH_TIMEOUT(taken.size(), 1, patience);
        settle();
        QCOMPARE(typed(), QString());
        QCOMPARE(spectrum(), usual);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        settle();
        QCOMPARE(spectrum(), u"1 point, 1 line not understood (line 2), 10 eV, "
                             "largest intensity 1"_s);
    }

    void commandsAreSummedUpAtOnce()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        typePoint();
        click("buttonNormalize");
        settle();
        QCOMPARE(typed(), QString()); // it is lost, and nothing is left to take over
        QCOMPARE(spectrum(), u"2 points, 10 to 10.5 eV, largest intensity 1000"_s);
        click("buttonSparse");
        settle();
        QVERIFY(spectrum().startsWith("499 points, 10.001 to 10.499 eV"_L1));
        QTest::keyClick(points(0), Qt::Key_Z, Qt::ControlModifier);
        settle();
        QCOMPARE(typed(), notYet);
        QTRY_COMPARE_WITH_TIMEOUT(typed(), QString(), patience);
        QCOMPARE(spectrum(), u"2 points, 10 to 10.5 eV, largest intensity 1000"_s);
    }

    void commaButtonIsLikeTyping()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        QGuiApplication::clipboard()->setText(u"12,60 10\n12,62 40"_s);
        points(0)->selectAll();
        points(0)->paste();
        settle();
        QCOMPARE(typed(), notYet);
        QTRY_COMPARE_WITH_TIMEOUT(typed(), QString(), patience);
        QCOMPARE(spectrum(), u"No points, 2 lines not understood (first: line 1)"_s);
        click("buttonCommaToDot");
        settle();
        QCOMPARE(typed(), notYet);
        QTRY_COMPARE_WITH_TIMEOUT(typed(), QString(), patience);
        QCOMPARE(spectrum(), u"2 points, 12.6 to 12.62 eV, largest intensity 40"_s);
    }

    void otherEntryIsSummedUp()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        typePoint();
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        openEntry(u"b.json"_s, {u"one"_s, u"two"_s});
        settle();
        QCOMPARE(spectrum(), usual);
        QCOMPARE(typed(), QString());
        trigger(*window, "actionClean");
        settle();
        QCOMPARE(spectrum(), QString());
        trigger(*window, "actionNew");
        settle();
        QCOMPARE(spectrum(), u"No points"_s);
    }

    void droppedFilesAreSummedUp()
    {
        openEntry(u"a.json"_s, {});
        settle();
        QCOMPARE(spectrum(), QString());
        const QString path = sandbox->write(u"b.json"_s, speciesFile(u"b"_s, {u"one"_s}));
        QVERIFY(dropFile(*window, *window->statusBar(), path));
        settle();
        QCOMPARE(spectrum(), usual);
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           u"Species not found in JSON file. Load aborted."_s);
        QVERIFY(dropFile(*window, *window->statusBar(), sandbox->write(u"c.json"_s, "{}")));
        settle();
        QCOMPARE(spectrum(), QString());
    }

    void pastedSpectrumIsSummedUp()
    {
        openThreeKinds();
        trigger(*window, "actionCopy");
        trigger(*window, "actionPaste");
        settle();
        QCOMPARE(subWindows(*window).size(), 4);
        QCOMPARE(spectrum(), usual);
        trigger(*window, "actionDelete");
        settle();
        QVERIFY(!spectrum().isEmpty());
    }

    void staysWhileAnotherWindowIsInFront()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        settle();
        QWidget other;
        QVERIFY(showActive(other));
        QTRY_VERIFY(!window->isActiveWindow());
        settle();
        QCOMPARE(spectrum(), usual);
        child<QDockWidget>(*window, "speciesDock")->setFloating(true);
        QCoreApplication::processEvents();
        QCOMPARE(spectrum(), usual);
    }

    void fieldsAndMenusHideNothing()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        typeInto(*child<QWidget>(*window, "lineEditTitle"), u"two"_s);
        QAction* action = child<QAction>(*window, "actionNew");
        action->hover();
        action->showStatusText(window.get());
        settle();
        QCOMPARE(spectrum(), usual);
    }

private:
    [[nodiscard]] QPlainTextEdit* points(int index) const
    {
        return child<QPlainTextEdit>(*spectra(*window).at(index), "textEditSpect");
    }

    /// Types behind the last point of the first spectrum, which has two then that are none.
    void typePoint()
    {
        points(0)->setFocus();
        QTest::keyClick(points(0), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(points(0), u" 3"_s);
        settle();
    }

    void click(const char* button)
    {
        child<QAbstractButton>(*spectra(*window).constFirst(), button)->click();
    }

    /// Spectra with two points, none and one; the first is in front.
    void openThreeKinds()
    {
        const QString path = sandbox->write(u"a.json"_s, R"({"Type": "Species v1",
            "Dataset1": {"E": [10, 10.5], "I": [1, 2]}, "Dataset2": {},
            "Dataset3": {"E": [5], "I": [6]}})");
        QVERIFY(window->openEntry(path));
    }
};

QTEST_MAIN(TestStatusPoints)
#include "tst_statuspoints.moc"
