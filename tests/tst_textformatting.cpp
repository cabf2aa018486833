// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/windowtest.h"
#include "widgets/singlelinetextedit.h"

#include <QAction>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QtCharts/QChartView>

using namespace Qt::StringLiterals;

using TestSupport::child;

/// Raising and lowering the selected text of the field that has the focus.
class TestTextFormatting : public WindowTest
{
    Q_OBJECT

    CleanTextEdit* formula = nullptr;

    /// Puts the focus into the field, gives it this content and selects from @p anchor to
    /// @p position.
    static bool select(CleanTextEdit& field, const char* html, int anchor, int position)
    {
        field.setFocus();
        field.setCleanedHtml(QString::fromLatin1(html));
        QTextCursor cursor = field.textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        field.setTextCursor(cursor);
        return field.hasFocus();
    }

    void lower() const { QTest::keyClick(window.get(), Qt::Key_B, Qt::ControlModifier); }
    void raise() const { QTest::keyClick(window.get(), Qt::Key_P, Qt::ControlModifier); }

    void clickTool(const char* actionName) const
    {
        QWidget* button = child<QToolBar>(*window, "toolBar")
                              ->widgetForAction(child<QAction>(*window, actionName));
        QTest::mouseClick(button, Qt::LeftButton);
    }

    void expectNoField() const
    {
        dialogs->expectBox(QMessageBox::Warning, u"No Text Field Focused"_s,
                           u"Please focus on a text field to apply formatting."_s);
    }

    void expectNoSelection() const
    {
        dialogs->expectBox(QMessageBox::Information, u"No Selection"_s,
                           u"Please select text to format."_s);
    }

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        formula = child<CleanTextEdit>(*window, "lineEditSumFormula");
    }

    void shortcutLowersTheSelectionAndBack()
    {
        QVERIFY(select(*formula, "H2O", 1, 2));
        lower();
        QCOMPARE(formula->cleanedHtml(), u"H<sub>2</sub>O"_s);
        lower();
        QCOMPARE(formula->cleanedHtml(), u"H2O"_s);
    }

    void shortcutRaisesTheSelectionAndBack()
    {
        QVERIFY(select(*formula, "H3O+", 3, 4));
        raise();
        QCOMPARE(formula->cleanedHtml(), u"H3O<sup>+</sup>"_s);
        raise();
        QCOMPARE(formula->cleanedHtml(), u"H3O+"_s);
    }

    void toolBarButtonsDoTheSame()
    {
        QVERIFY(select(*formula, "H2O", 1, 2));
        clickTool("actionSubscript");
        QCOMPARE(formula->cleanedHtml(), u"H<sub>2</sub>O"_s);
        clickTool("actionSuperscript");
        QCOMPARE(formula->cleanedHtml(), u"H<sup>2</sup>O"_s);
        clickTool("actionSuperscript");
        QCOMPARE(formula->cleanedHtml(), u"H2O"_s);
        QVERIFY(formula->hasFocus());
    }

    void toolTipsNameTheShortcuts()
    {
        QCOMPARE(child<QAction>(*window, "actionSuperscript")->toolTip(), u"Ctrl + P"_s);
        QCOMPARE(child<QAction>(*window, "actionSubscript")->toolTip(), u"Ctrl + B"_s);
        QCOMPARE(child<QAction>(*window, "actionSuperscript")->shortcut(),
                 QKeySequence(u"Ctrl+P"_s));
        QCOMPARE(child<QAction>(*window, "actionSubscript")->shortcut(), QKeySequence(u"Ctrl+B"_s));
    }

    void oneAlignmentReplacesTheOther()
    {
        QVERIFY(select(*formula, "H<sub>2</sub>O", 1, 2));
        raise();
        QCOMPARE(formula->cleanedHtml(), u"H<sup>2</sup>O"_s);
        lower();
        QCOMPARE(formula->cleanedHtml(), u"H<sub>2</sub>O"_s);
    }

    void mixedSelectionFollowsTheCharacterBeforeTheCursor_data()
    {
        QTest::addColumn<QString>("html");
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("lowered");
        const auto row = [](const char* name, const char* html, int anchor, int position,
                            const char* lowered) {
            QTest::newRow(name) << QString::fromLatin1(html) << anchor << position
                                << QString::fromLatin1(lowered);
        };
        row("last is lowered: all normal", "a<sub>b</sub>c", 0, 2, "abc");
        row("last is normal: all lowered", "a<sub>b</sub>c", 1, 3, "a<sub>bc</sub>");
        row("last is raised: all lowered", "a<sub>b</sub><sup>c</sup>", 1, 3, "a<sub>bc</sub>");
        row("backwards, lowered before", "a<sub>b</sub>c", 3, 2, "a<sub>b</sub>c");
        row("backwards, normal before", "a<sub>b</sub>c", 3, 1, "a<sub>bc</sub>");
        row("backwards to the start", "<sub>a</sub>b", 2, 0, "ab");
        row("whole line", "<sub>a</sub>b", 0, 2, "<sub>ab</sub>");
        row("across a line break", "a<br>b", 0, 3, "<sub>a</sub><br><sub>b</sub>");
    }

    void mixedSelectionFollowsTheCharacterBeforeTheCursor()
    {
        QFETCH(const QString, html);
        QFETCH(const int, anchor);
        QFETCH(const int, position);
        QVERIFY(select(*formula, html.toLatin1().constData(), anchor, position));
        lower();
        QTEST(formula->cleanedHtml(), "lowered");
    }

    void selectionStaysVisible()
    {
        QVERIFY(select(*formula, "H2O", 1, 2));
        lower();
        QCOMPARE(formula->textCursor().anchor(), 1);
        QCOMPARE(formula->textCursor().position(), 2);
        QVERIFY(select(*formula, "H2O", 3, 1));
        raise();
        QCOMPARE(formula->textCursor().anchor(), 3);
        QCOMPARE(formula->textCursor().position(), 1);
    }

    void onlyTheAlignmentChanges()
    {
        QVERIFY(select(*formula, "H2O", 1, 2));
        formula->setFontWeight(QFont::Bold);
        formula->setTextColor(Qt::red);
        lower();
        const QTextCharFormat format = formula->textCursor().charFormat();
        QCOMPARE(format.verticalAlignment(), QTextCharFormat::AlignSubScript);
        QCOMPARE(format.fontWeight(), int(QFont::Bold));
        QCOMPARE(format.foreground().color(), QColor(Qt::red));
        QCOMPARE(formula->toPlainText(), u"H2O"_s);
    }

    void changeIsAnnouncedAndReachesTheRecordOnLeaving()
    {
        QVERIFY(select(*formula, "H2O", 1, 2));
        const QSignalSpy changes(formula, &CleanTextEdit::cleanedHtmlChanged);
        lower();
        QVERIFY(changes.count() > 0);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
        QTest::keyClick(formula, Qt::Key_Tab);
        QTRY_COMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled) *"_s);
        QCOMPARE(formula->cleanedHtml(), u"H<sub>2</sub>O"_s);
    }

    void everyFieldOfTheSpeciesFormIsServed_data()
    {
        QTest::addColumn<QByteArray>("name");
        for (const char* name :
             {"lineEditSpecies", "textEditAliases", "lineEditMass", "lineEditSumFormula",
              "lineEditInChI", "lineEditCAS", "lineEditCID", "lineEditAIE", "lineEditAIEComment",
              "lineEditVIE", "lineEditVIEComment"})
            QTest::newRow(name) << QByteArray(name);
    }

    void everyFieldOfTheSpeciesFormIsServed()
    {
        QFETCH(const QByteArray, name);
        auto* field = child<CleanTextEdit>(*window, name.constData());
        QVERIFY(select(*field, "ab", 0, 1));
        raise();
        QCOMPARE(field->cleanedHtml(), u"<sup>a</sup>b"_s);
    }

    void fieldsOfSpectrumWindowsAreServed_data()
    {
        QTest::addColumn<QByteArray>("name");
        for (const char* name :
             {"lineEditTitle", "lineEditUploader", "lineEditSpectDOI", "textEditCitations",
              "lineEditSource", "lineEditSourceT", "lineEditResolution", "lineEditFlux",
              "lineEditFacilityDate", "textEditComments"})
            QTest::newRow(name) << QByteArray(name);
    }

    void fieldsOfSpectrumWindowsAreServed()
    {
        QFETCH(const QByteArray, name);
        window->createNewSpectrumWindow();
        auto* spectrum = window->findChild<SpectrumWindow*>();
        auto* field = child<CleanTextEdit>(*spectrum, name.constData());
        QVERIFY(select(*field, "ab", 0, 1));
        lower();
        QCOMPARE(field->cleanedHtml(), u"<sub>a</sub>b"_s);
        raise();
        QCOMPARE(field->cleanedHtml(), u"<sup>a</sup>b"_s);
    }

    void commandWithoutASelectionOnlySaysSo_data()
    {
        QTest::addColumn<bool>("byShortcut");
        QTest::newRow("shortcut") << true;
        QTest::newRow("tool bar") << false;
    }

    void commandWithoutASelectionOnlySaysSo()
    {
        QFETCH(const bool, byShortcut);
        QVERIFY(select(*formula, "H<sub>2</sub>O", 2, 2));
        expectNoSelection();
        byShortcut ? lower() : clickTool("actionSubscript");
        QVERIFY2(dialogs->passed(), dialogs->report().constData());

        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        formula->setFocus();
        expectNoSelection();
        byShortcut ? raise() : clickTool("actionSuperscript");
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(formula->cleanedHtml(), u"H<sub>2</sub>O"_s);
    }

    void commandOutsideTextFieldsOnlySaysSo_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("button of the form") << QByteArray("buttonDownload");
        QTest::newRow("button of a spectrum") << QByteArray("buttonNormalize");
        QTest::newRow("chart") << QByteArray("chartSpectrum");
        QTest::newRow("type of a spectrum") << QByteArray("comboBoxType");
        QTest::newRow("points of a spectrum") << QByteArray("textEditSpect");
    }

    void commandOutsideTextFieldsOnlySaysSo()
    {
        QFETCH(const QByteArray, name);
        window->createNewSpectrumWindow();
        QVERIFY(select(*formula, "H2O", 1, 2));
        auto* points = child<QPlainTextEdit>(*window, "textEditSpect");
        points->setPlainText(u"1 2"_s);
        points->selectAll();
        auto* widget = child<QWidget>(*window, name.constData());
        widget->setFocus();
        QVERIFY(widget->hasFocus());

        expectNoField();
        lower();
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        widget->setFocus();
        expectNoField();
        raise();
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(formula->cleanedHtml(), u"H2O"_s);
        QCOMPARE(points->toPlainText(), u"1 2"_s);
    }

    void commandWithoutAnyFocusOnlySaysSo()
    {
        if (QWidget* focused = QApplication::focusWidget())
            focused->clearFocus();
        QVERIFY(QApplication::focusWidget() == nullptr);
        expectNoField();
        window->applySuperscript();
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
    }

    void slotsCanBeInvokedByName()
    {
        QVERIFY(select(*formula, "H2O", 1, 2));
        QVERIFY(QMetaObject::invokeMethod(window.get(), "applySubscript"));
        QCOMPARE(formula->cleanedHtml(), u"H<sub>2</sub>O"_s);
        QVERIFY(QMetaObject::invokeMethod(window.get(), "applySuperscript"));
        QCOMPARE(formula->cleanedHtml(), u"H<sup>2</sup>O"_s);
        QVERIFY(QMetaObject::invokeMethod(
            window.get(), "applyTextFormatting",
            Q_ARG(QTextCharFormat::VerticalAlignment, QTextCharFormat::AlignSubScript)));
        QCOMPARE(formula->cleanedHtml(), u"H<sub>2</sub>O"_s);
    }
};

QTEST_MAIN(TestTextFormatting)
#include "tst_textformatting.moc"
