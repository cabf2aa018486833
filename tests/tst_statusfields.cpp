// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/statustest.h"
#include "widgets/singlelinetextedit.h"

#include <QClipboard>
#include <QComboBox>
#include <QDockWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolBar>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

const QString notYet = u"Field not yet taken over"_s;

/// Presses a key where the focus is.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

} // namespace

/// The status bar says so as long as a field holds text that counts only when it is left.
class TestStatusFields : public StatusTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        const QString path = sandbox->write(u"a.json"_s, R"({"Type": "Species v1", "Species":
            {"Name": "water", "Mass": 18.5, "Formula": "a &lt; b"},
            "Dataset1": {"Title": "one", "Source": "<span>lamp</span>"}})");
        QVERIFY(window->openEntry(path));
        settle();
    }

    void fieldsOfTheFormAndOfASpectrum_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* name : {"lineEditSpecies",    "textEditAliases",      "lineEditMass",
                                 "lineEditSumFormula", "lineEditInChI",        "lineEditCAS",
                                 "lineEditCID",        "lineEditAIE",          "lineEditAIEComment",
                                 "lineEditVIE",        "lineEditVIEComment",   "lineEditTitle",
                                 "lineEditUploader",   "lineEditSpectDOI",     "textEditCitations",
                                 "lineEditSource",     "lineEditSourceT",      "lineEditResolution",
                                 "lineEditFlux",       "lineEditFacilityDate", "textEditComments"})
            QTest::newRow(name) << 0;
    }

    void fieldsOfTheFormAndOfASpectrum()
    {
        focus(QTest::currentDataTag());
        press(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(typed(), QString());
        press(Qt::Key_7);
        QCOMPARE(typed(), notYet);
        press(Qt::Key_8);
        QCOMPARE(typed(), notYet);
        press(Qt::Key_Tab);
        QCOMPARE(typed(), QString());
    }

    void fieldsOfASimulation()
    {
        child<QComboBox>(*window, "comboBoxType")->setCurrentText(u"FC simulation"_s);
        for (const char* name : {"lineEditSource", "lineEditResolution", "lineEditFlux"}) {
            focus(name);
            press(Qt::Key_7);
            QCOMPARE(typed(), notYet);
            press(Qt::Key_Tab);
            QCOMPARE(typed(), QString());
        }
    }

    void textThatIsAsBefore()
    {
        focus("lineEditSpecies");
        press(Qt::Key_End);
        press(Qt::Key_X);
        QCOMPARE(typed(), notYet);
        press(Qt::Key_Backspace);
        QCOMPARE(typed(), QString());
        press(Qt::Key_X);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(typed(), QString());

        focus("lineEditCID"); // empty, and never written
        press(Qt::Key_7);
        QCOMPARE(typed(), notYet);
        press(Qt::Key_Backspace);
        QCOMPARE(typed(), QString());

        focus("lineEditMass");
        press(Qt::Key_End);
        press(Qt::Key_0);
        QCOMPARE(typed(), QString()); // 18.50 is no other number
        press(Qt::Key_1);
        QCOMPARE(typed(), notYet);
    }

    void textThatIsSpeltDifferentlyInTheFile()
    {
        for (const char* name : {"lineEditSumFormula", "lineEditSource"}) {
            focus(name);
            press(Qt::Key_End);
            QCOMPARE(typed(), QString());
            press(Qt::Key_X);
            QCOMPARE(typed(), notYet);
        }
    }

    void formatAndPasteCountToo()
    {
        focus("lineEditSpecies");
        press(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(typed(), QString());
        press(Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(typed(), notYet);
        press(Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(typed(), QString());
        QGuiApplication::clipboard()->setText(u"x"_s);
        press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(typed(), notYet);
    }

    void savingDoesNotHideWhatIsNotSaved()
    {
        focus("lineEditSpecies");
        press(Qt::Key_X);
        press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(last().startsWith("Entry saved at "_L1));
        QCOMPARE(typed(), notYet);
        press(Qt::Key_Tab);
        QCOMPARE(typed(), QString());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
    }

    void cleaningTakesTheTextAway()
    {
        focus("lineEditCID");
        press(Qt::Key_7);
        press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(child<CleanTextEdit>(*window, "lineEditCID")->toPlainText(), QString());
        QCOMPARE(typed(), QString());
    }

    void openingReplacesTheText()
    {
        focus("lineEditSpecies");
        press(Qt::Key_X);
        openEntry(u"b.json"_s, {u"one"_s});
        QCOMPARE(typed(), QString());
    }

    void closingTheSpectrumEndsIt()
    {
        focus("lineEditUploader");
        press(Qt::Key_X);
        QCOMPARE(typed(), notYet);
        press(Qt::Key_W, Qt::ControlModifier);
        settle();
        QCOMPARE(subWindows(*window).size(), 0);
        QCOMPARE(typed(), QString());
    }

    void arrowsOfTheToolBarTakeItOver()
    {
        sandbox->write(u"b.json"_s, speciesFile(u"b"_s));
        focus("lineEditSpecies");
        press(Qt::Key_X);
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        auto* bar = child<QToolBar>(*window, "toolBar");
        QTest::mouseClick(bar->widgetForAction(child<QAction>(*window, "actionNextFile")),
                          Qt::LeftButton);
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(typed(), QString());
        QVERIFY(showActive(*window));
        press(Qt::Key_X);
        QCOMPARE(typed(), notYet);
    }

    void leavingTheWindowTakesItOver()
    {
        focus("lineEditSpecies");
        press(Qt::Key_X);
        QWidget other;
        QVERIFY(showActive(other));
        QTRY_COMPARE(typed(), QString());
        QVERIFY(cell(*window, SpeciesModel::Name).contains(u'x'));
    }

    void floatingFormIsPartOfTheWindow()
    {
        auto* dock = child<QDockWidget>(*window, "speciesDock");
        dock->setFloating(true);
        QVERIFY(showActive(*dock));
        focus("lineEditSpecies");
        press(Qt::Key_X);
        QCOMPARE(typed(), notYet);
        press(Qt::Key_Tab);
        QCOMPARE(typed(), QString());
    }

    void pointsAndFieldAtOnce()
    {
        auto* points = child<QPlainTextEdit>(*window, "textEditSpect");
        points->setFocus();
        QTest::keyClicks(points, u"9 1"_s);
        press(Qt::Key_Tab, Qt::ShiftModifier);
        focus("lineEditTitle");
        press(Qt::Key_X);
        settle();
        QCOMPARE(typed(), u"Points and field not yet taken over"_s);
        QTRY_COMPARE_WITH_TIMEOUT(typed(), notYet, patience);
        press(Qt::Key_Tab);
        QCOMPARE(typed(), QString());
    }

private:
    void focus(const char* name) const
    {
        auto* field = child<QWidget>(*window, name);
        field->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(field->hasFocus());
    }
};

QTEST_MAIN(TestStatusFields)
#include "tst_statusfields.moc"
