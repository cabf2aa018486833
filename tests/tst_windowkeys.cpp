// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QAction>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

using namespace TestSupport;
using namespace Qt::StringLiterals;

/// What can be done by keyboard alone beside the shortcuts of the actions, and what the mouse does
/// not do by a slip.
class TestWindowKeys : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        for (const auto& name : {u"a"_s, u"b"_s, u"c"_s})
            sandbox->write(name + u".json", speciesFile(name, {u"one"_s, u"two"_s, u"three"_s}));
        QVERIFY(window->openEntry(sandbox->path(u"b.json"_s)));
    }

    void filesAreSteppedThrough_data()
    {
        QTest::addColumn<QByteArray>("focus");
        QTest::newRow("form") << QByteArray("lineEditMass");
        QTest::newRow("aliases") << QByteArray("textEditAliases");
        QTest::newRow("button") << QByteArray("buttonDownload");
        QTest::newRow("points") << QByteArray("textEditSpect");
        QTest::newRow("type") << QByteArray("comboBoxType");
    }
    void filesAreSteppedThrough()
    {
        QFETCH(const QByteArray, focus);
        for (const auto& [key, name] :
             {std::pair(Qt::Key_PageDown, u"c"_s), std::pair(Qt::Key_PageUp, u"b"_s)}) {
            child<QWidget>(*window, focus.constData())->setFocus();
            QTest::keyClick(QApplication::focusWidget(), key, Qt::AltModifier);
            QCOMPARE(cell(*window, SpeciesModel::Name), name);
        }
    }

    void folderIsSelected()
    {
        child<QWidget>(*window, "lineEditMass")->setFocus();
        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F,
                        Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"a"_s);
    }

    void imageMenuOpens()
    {
        child<QWidget>(*window, "lineEditMass")->setFocus();
        QStringList entries;
        dialogs->expect([&entries](QWidget& menu) {
            const QList<QAction*> actions = menu.actions();
            for (const QAction* action : actions)
                entries.append(action->text());
            menu.close();
        });
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_I,
                        Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(entries, QStringList({u"Clear Image"_s, u"Paste Image from Clipboard"_s}));
    }

    void spectraAreSteppedThroughFromTheForm()
    {
        child<QWidget>(*window, "lineEditMass")->setFocus();
        QStringList visited;
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
            visited.append(activeTitle());
            QCOMPARE(QApplication::focusWidget()->objectName(), u"lineEditTitle"_s);
        }
        QCOMPARE(visited, QStringList({u"two"_s, u"three"_s, u"one"_s}));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab,
                        Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(activeTitle(), u"three"_s);
    }

    void titleHasTheFocusAfterNew()
    {
        child<QWidget>(*window, "lineEditMass")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_N,
                        Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(spectra(*window).size(), 4);
        QVERIFY(spectra(*window).constLast()->isAncestorOf(QApplication::focusWidget()));
        QCOMPARE(QApplication::focusWidget()->objectName(), u"lineEditTitle"_s);
    }

    void toolTipsTellTheKeys()
    {
        QCOMPARE(child<QAction>(*window, "actionPreviousFile")->toolTip(),
                 u"Previous File (Alt+PgUp)"_s);
        QCOMPARE(child<QAction>(*window, "actionNextFile")->toolTip(), u"Next File (Alt+PgDown)"_s);
        QCOMPARE(child<QAction>(*window, "actionSelectFolder")->toolTip(),
                 u"Select Folder (Ctrl+Shift+F)"_s);
        QVERIFY(child<QWidget>(*window, "imageLabel")->toolTip().contains(u"Ctrl+Shift+I"));
        // The actions themselves keep having none.
        for (const char* name : {"actionPreviousFile", "actionNextFile", "actionSelectFolder"})
            QVERIFY(child<QAction>(*window, name)->shortcut().isEmpty());
    }

    void buttonsSayWhatTheyDo()
    {
        for (const char* name :
             {"buttonNormalize", "buttonSparse", "buttonCommaToDot", "buttonDownload"})
            QVERIFY2(!child<QPushButton>(*window, name)->toolTip().isEmpty(), name);
    }

    void wheelOverTheTypeChangesNothing()
    {
        auto* type = child<QComboBox>(*spectra(*window).constFirst(), "comboBoxType");
        type->setFocus();
        const int before = type->currentIndex();
        turnWheel(*type, {0, -120});
        QCOMPARE(type->currentIndex(), before);
        const QPointF position = type->rect().center();
        QWheelEvent wheel(position, type->mapToGlobal(position), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(type, &wheel);
        QCOMPARE(type->currentIndex(), before);
        QVERIFY(!wheel.isAccepted());
        QTest::keyClick(type, Qt::Key_Down);
        QCOMPARE(type->currentIndex(), before + 1);
    }

    void wheelOverAFieldScrollsTheForm()
    {
        window->resize(700, 400);
        auto* form = child<QScrollArea>(*spectra(*window).constFirst(), "scrollAreaSpectrum");
        auto* field = child<QTextEdit>(*spectra(*window).constFirst(), "lineEditTitle");
        QTRY_VERIFY(form->verticalScrollBar()->maximum() > 0);
        const int before = form->verticalScrollBar()->value();
        turnWheel(*field->viewport(), {0, -120});
        QVERIFY(form->verticalScrollBar()->value() > before);
        turnWheel(*field->viewport(), {0, 120});
        QCOMPARE(form->verticalScrollBar()->value(), before);
    }

    void wheelScrollsALongTextSideways()
    {
        auto* field = child<QTextEdit>(*spectra(*window).constFirst(), "lineEditTitle");
        field->setPlainText(u"photoelectron "_s.repeated(50));
        field->moveCursor(QTextCursor::Start);
        QTRY_VERIFY(field->horizontalScrollBar()->maximum() > 0);
        turnWheel(*field->viewport(), {-120, 0});
        QVERIFY(field->horizontalScrollBar()->value() > 0);
    }

private:
    static void turnWheel(QWidget& widget, QPoint angle)
    {
        const QPointF position = widget.rect().center();
        QWheelEvent wheel(position, widget.mapToGlobal(position), {}, angle, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel); // else it would go no further than the widget
        QApplication::instance()->notify(&widget, &wheel);
    }

    [[nodiscard]] QString activeTitle() const
    {
        return child<QMdiArea>(*window, "mdiArea")->activeSubWindow()->widget()->windowTitle();
    }
};

QTEST_MAIN(TestWindowKeys)
#include "tst_windowkeys.moc"
