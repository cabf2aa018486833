// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"
#include "widgets/cleantextedit.h"

#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

/// A field that claims every key for itself, as text fields do on some desktops with Ctrl+D.
class GreedyField : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

    QStringList claimed;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ShortcutOverride) {
            const auto& key = static_cast<const QKeyEvent&>(*event);
            claimed.append(QKeySequence(key.keyCombination()).toString());
            event->accept();
            return true;
        }
        return QLineEdit::event(event);
    }
};

} // namespace

/// The commands' keys while a field has the focus.
class TestShortcuts : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        const QString path = sandbox->write(u"a.json"_s, speciesFile(u"Water"_s, {u"one"_s}));
        QVERIFY(window->openEntry(path));
    }

    void cleanWorksInside_data() { allFields(); }

    void cleanWorksInside()
    {
        focusField();
        press("Ctrl+D");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled)"_s);
        QVERIFY(subWindows(*window).isEmpty());
    }

    void saveWorksInside_data() { allFields(); }

    void saveWorksInside()
    {
        window->setModified();
        focusField();
        press("Ctrl+S");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
    }

    void newDeleteCopyAndPasteWorkInside_data() { allFields(); }

    void newDeleteCopyAndPasteWorkInside()
    {
        focusField();
        press("Ctrl+Shift+C");
        QVERIFY(QGuiApplication::clipboard()->text().contains(u"Spectrum v1"));
        press("Ctrl+Shift+V");
        QCOMPARE(spectrumTitles(*window), QStringList({u"one"_s, u"one"_s}));
        press("Ctrl+Shift+N");
        QCOMPARE(spectrumTitles(*window), QStringList({u"one"_s, u"one"_s, QString()}));
        press("Ctrl+Shift+D");
        QCOMPARE(spectrumTitles(*window), QStringList({u"one"_s, u"one"_s}));
    }

    void openWorksInside_data() { allFields(); }

    void openWorksInside()
    {
        focusField();
        dialogs->expectFileDialog(u"Open Species JSON File"_s, {});
        press("Ctrl+O");
        QVERIFY2(dialogs->passed(), dialogs->report().constData());

        QVERIFY(showActive(*window));
        focusField();
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, {});
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Could not open file for reading"_s);
        press("Ctrl+Shift+O");
    }

    void selectionIsRaisedAndLoweredInside_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* name : {"lineEditSpecies", "textEditAliases", "lineEditAIE",
                                 "lineEditTitle", "textEditComments", "lineEditSource"})
            QTest::newRow(name) << 0;
    }

    void selectionIsRaisedAndLoweredInside()
    {
        auto* field = child<CleanTextEdit>(*window, QTest::currentDataTag());
        typeInto(*field, u"H2"_s);
        QTest::keyClick(field, Qt::Key_Left, Qt::ShiftModifier);
        press("Ctrl+B");
        QCOMPARE(field->cleanedHtml(), u"H<sub>2</sub>"_s);
        QTest::keyClick(field, Qt::Key_End);
        QTest::keyClick(field, Qt::Key_Left, Qt::ShiftModifier);
        press("Ctrl+P");
        QCOMPARE(field->cleanedHtml(), u"H<sup>2</sup>"_s);
    }

    void pointListHasNoRaisedText_data()
    {
        QTest::addColumn<int>("unused");
        QTest::newRow("Ctrl+P") << 0;
        QTest::newRow("Ctrl+B") << 0;
    }

    void pointListHasNoRaisedText()
    {
        auto* points = child<QPlainTextEdit>(*window, "textEditSpect");
        points->setFocus();
        QTest::keyClick(points, Qt::Key_A, Qt::ControlModifier);
        dialogs->expectBox(QMessageBox::Warning, u"No Text Field Focused"_s,
                           u"Please focus on a text field to apply formatting."_s);
        press(QTest::currentDataTag());
        QCOMPARE(points->toPlainText(), u"10; 1\n10.5; 2"_s);
    }

    void commandsWinOverFieldsThatClaimTheirKeys()
    {
        auto* field = new GreedyField(window->centralWidget());
        field->show();
        field->setFocus();
        QVERIFY(field->hasFocus());
        press("Ctrl+Shift+N");
        QCOMPARE(subWindows(*window).size(), 2);

        field->setFocus();
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        press("Ctrl+D");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled)"_s);
        QVERIFY(!field->claimed.contains(u"Ctrl+D"_s));
    }

    void commandsWinInTheFloatingFormToo()
    {
        auto* dock = child<QDockWidget>(*window, "speciesDock");
        auto* field = new GreedyField(dock->widget());
        field->show();
        dock->setFloating(true);
        QVERIFY(showActive(*dock));
        field->setFocus();
        QTRY_VERIFY(field->hasFocus());
        press("Ctrl+D");
        QVERIFY(!field->claimed.contains(u"Ctrl+D"_s));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled)"_s);
    }

    void fieldsKeepTheirOwnKeys()
    {
        auto* field = new GreedyField(window->centralWidget());
        field->show();
        field->setFocus();
        press("Ctrl+A");
        press("Ctrl+C");
        QVERIFY(field->claimed.contains(u"Ctrl+A"_s));
        QVERIFY(field->claimed.contains(u"Ctrl+C"_s));
    }

    void dialogFieldsKeepTheCommandsKeys()
    {
        QStringList claimed;
        dialogs->expect([&claimed](QWidget& dialog) {
            auto* field = new GreedyField(&dialog);
            field->show();
            field->setFocus();
            QTest::keyClick(field, Qt::Key_D, Qt::ControlModifier);
            claimed = field->claimed;
            static_cast<QDialog&>(dialog).reject();
        });
        trigger(*window, "actionLoadSpecies");
        QVERIFY(claimed.contains(u"Ctrl+D"_s));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
    }

private:
    static void allFields()
    {
        QTest::addColumn<int>("unused");
        for (const char* name : {"lineEditSpecies", "textEditAliases", "lineEditTitle",
                                 "textEditComments", "textEditSpect"})
            QTest::newRow(name) << 0;
    }

    void focusField()
    {
        auto* field = child<QWidget>(*window, QTest::currentDataTag());
        field->setFocus();
        QVERIFY(field->hasFocus());
    }

    /// Presses the keys where the focus is.
    static void press(const char* keys)
    {
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(QLatin1StringView(keys)));
    }
};

QTEST_MAIN(TestShortcuts)
#include "tst_shortcuts.moc"
