// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"
#include "widgets/singlelinetextedit.h"

#include <QJsonDocument>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

using namespace TestSupport;
using namespace Qt::StringLiterals;

/// Text that was typed and not left, when the document is about to go by a way that takes no focus:
/// the close button, a drop, the arrows of the tool bar.
class TestLeftField : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        for (const auto& name : {u"a"_s, u"b"_s, u"c"_s})
            sandbox->write(name + u".json", speciesFile(name, {u"one"_s}));
        QVERIFY(window->openEntry(sandbox->path(u"b.json"_s)));
        mass = child<SingleLineTextEdit>(*window, "lineEditMass");
    }

    void typedTextIsAskedAbout_data() { waysOut(); }
    void typedTextIsAskedAbout()
    {
        typeMass();
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        leave();
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(window->isVisible());
        QCOMPARE(cell(*window, SpeciesModel::Mass), u"12"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - b.json *"_s);
    }

    void fieldGetsTheFocusBackWithItsCursor_data() { waysOut(); }
    void fieldGetsTheFocusBackWithItsCursor()
    {
        typeMass();
        QTest::keyClick(mass, Qt::Key_Left, Qt::ShiftModifier);
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        leave();
        QVERIFY(showActive(*window));
        QCOMPARE(QApplication::focusWidget(), mass);
        QCOMPARE(mass->textCursor().anchor(), 2);
        QCOMPARE(mass->textCursor().position(), 1);
        QTest::keyClick(mass, Qt::Key_7);
        QCOMPARE(mass->toPlainText(), u"17"_s);
    }

    void savingStoresTheTypedText_data() { waysOut(); }
    void savingStoresTheTypedText()
    {
        typeMass();
        dialogs->expectSaveQuestion(QMessageBox::Save);
        leave();
        const QByteArray saved = sandbox->read(u"b.json"_s);
        QCOMPARE(QJsonDocument::fromJson(saved)[u"Species"][u"Mass"].toDouble(), 12.0);
    }

    void fieldOfASpectrumCountsToo_data() { waysOut(); }
    void fieldOfASpectrumCountsToo()
    {
        auto* uploader =
            child<SingleLineTextEdit>(*spectra(*window).constFirst(), "lineEditUploader");
        typeInto(*uploader, u"me"_s);
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        leave();
        QCOMPARE(spectra(*window).constFirst()->model()->value(SpectrumModel::Uploader).toString(),
                 u"me"_s);
    }

    void withoutNewTextNobodyIsAsked_data() { waysOut(); }
    void withoutNewTextNobodyIsAsked()
    {
        mass->setFocus();
        leave();
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(window->windowTitle() != u"KORVELA Entry Edit - b.json"_s || !window->isVisible());
    }

    void whatIsNoFieldKeepsTheFocus_data() { waysOut(); }
    void whatIsNoFieldKeepsTheFocus()
    {
        for (const char* name : {"textEditSpect", "chartSpectrum", "buttonNormalize"}) {
            auto* widget = child<QWidget>(*window, name);
            widget->setFocus();
            window->setModified();
            dialogs->expectSaveQuestion(QMessageBox::Cancel);
            leave();
            QVERIFY(showActive(*window));
            QCOMPARE(QApplication::focusWidget(), widget);
        }
    }

    void steppingWithoutSpectraLeavesTheFocusInTheField()
    {
        sandbox->write(u"c.json"_s, speciesFile(u"c"_s));
        mass->setFocus();
        clickToolButton("actionNextFile");
        QCOMPARE(cell(*window, SpeciesModel::Name), u"c"_s);
        QCOMPARE(QApplication::focusWidget(), mass);
    }

    void savingByItsCommandStillDoesNotSubmit()
    {
        typeMass();
        window->setModified();
        trigger(*window, "actionSaveSpecies");
        const QByteArray saved = sandbox->read(u"b.json"_s);
        QCOMPARE(QJsonDocument::fromJson(saved)[u"Species"][u"Mass"].toDouble(), 0.0);
        QCOMPARE(QApplication::focusWidget(), mass);
    }

private:
    void waysOut()
    {
        QTest::addColumn<QByteArray>("way");
        for (const auto* way : {"close", "drop", "actionPreviousFile", "actionNextFile"})
            QTest::newRow(way) << QByteArray(way);
    }

    void typeMass() { typeInto(*mass, u"12"_s); }

    void clickToolButton(const char* action) const
    {
        auto* toolBar = child<QToolBar>(*window, "toolBar");
        QTest::mouseClick(toolBar->widgetForAction(child<QAction>(*window, action)),
                          Qt::LeftButton);
    }

    void leave()
    {
        QFETCH(const QByteArray, way);
        if (way == "close")
            window->close();
        else if (way == "drop")
            dropFile(*window, *window->statusBar(), sandbox->path(u"a.json"_s));
        else
            clickToolButton(way.constData());
    }

    SingleLineTextEdit* mass = nullptr;
};

QTEST_MAIN(TestLeftField)
#include "tst_leftfield.moc"
