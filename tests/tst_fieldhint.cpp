// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/specieshint.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"
#include "widgets/singlelinetextedit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

using namespace TestSupport;
using namespace Qt::StringLiterals;

/// Quiet hints at what may have been mistyped. Nothing is refused for them.
class TestFieldHint : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void casNumbersAreHintedAt_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("hinted");
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("blanks") << u"  "_s << false;
        QTest::newRow("right") << u"58-08-2"_s << false;
        QTest::newRow("right between blanks") << u" 58-08-2 "_s << false;
        QTest::newRow("wrong check digit") << u"58-08-3"_s << true;
        QTest::newRow("wrong form") << u"58-8-2"_s << true;
        QTest::newRow("words") << u"caffeine"_s << true;
    }
    void casNumbersAreHintedAt()
    {
        QFETCH(const QString, text);
        QTEST(!SpeciesHint::aboutCasNumber(text).isEmpty(), "hinted");
    }

    void massesAreHintedAt_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("hinted");
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("number") << u"16.04"_s << false;
        QTest::newRow("with exponent") << u"1.6e1"_s << false;
        QTest::newRow("comma") << u"16,04"_s << true;
        QTest::newRow("unit") << u"16.04 amu"_s << true;
        QTest::newRow("infinite") << u"inf"_s << true;
        QTest::newRow("not a number") << u"nan"_s << true;
        QTest::newRow("too large") << u"1e400"_s << true;
    }
    void massesAreHintedAt()
    {
        QFETCH(const QString, text);
        QTEST(!SpeciesHint::aboutMass(text).isEmpty(), "hinted");
    }

    void hintWaitsUntilTheFieldIsLeft()
    {
        SingleLineTextEdit& field = cas();
        typeInto(field, u"58-08-3"_s);
        QCOMPARE(field.hint(), QString());
        QVERIFY(field.extraSelections().isEmpty());
        leave();
        QCOMPARE(field.hint(), SpeciesHint::aboutCasNumber(u"58-08-3"_s));
        QCOMPARE(field.extraSelections().size(), 1);
        QCOMPARE(field.extraSelections().constFirst().cursor.selectedText(), u"58-08-3"_s);
    }

    void hintGoesAsSoonAsTheTextIsRight()
    {
        SingleLineTextEdit& field = cas();
        typeInto(field, u"58-08-3"_s);
        leave();
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_End);
        QTest::keyClick(&field, Qt::Key_Backspace);
        QVERIFY(!field.hint().isEmpty());
        QTest::keyClick(&field, Qt::Key_2);
        QCOMPARE(field.hint(), QString());
        QVERIFY(field.extraSelections().isEmpty());
    }

    void loadedTextIsHintedAtAndSavedAsItIs()
    {
        const QString path = sandbox->write(
            u"a.json"_s, R"({"Type": "Species v1", "Species": {"CAS": "58-08-3", "Name": "X"}})");
        QVERIFY(window->openEntry(path));
        QVERIFY(!cas().hint().isEmpty());
        QCOMPARE(cas().property("cleanedHtml").toString(), u"58-08-3"_s);
        window->setModified();
        trigger(*window, "actionSaveSpecies");
        QVERIFY(sandbox->read(u"a.json"_s).contains("\"58-08-3\""));
        trigger(*window, "actionClean");
        QCOMPARE(cas().hint(), QString());
    }

    void massIsWatchedToo()
    {
        auto& field = *child<SingleLineTextEdit>(*window, "lineEditMass");
        typeInto(field, u"16,04"_s);
        leave();
        QCOMPARE(field.hint(), SpeciesHint::aboutMass(u"16,04"_s));
    }

    void hintIsTheToolTip()
    {
        SingleLineTextEdit& field = cas();
        typeInto(field, u"58-08-3"_s);
        leave();
        askForToolTip(field);
        QCOMPARE(QToolTip::text(), field.hint());
    }

    void textThatDoesNotFitIsTheToolTip()
    {
        auto& field = *child<SingleLineTextEdit>(*window, "lineEditInChI");
        typeInto(field, u"<b>short</b>"_s);
        QToolTip::hideText();
        askForToolTip(field);
        QCOMPARE(QToolTip::text(), QString());
        typeInto(field, u"<img src=x>"_s.repeated(40));
        askForToolTip(field);
        QVERIFY(QToolTip::text().contains(u"&lt;img src=x&gt;"_s.repeated(40)));
    }

    void endOfALongPasteIsInView()
    {
        auto& field = *child<SingleLineTextEdit>(*window, "lineEditInChI");
        field.setFocus();
        field.insertPlainText(u"start"_s);
        QGuiApplication::clipboard()->setText(u"InChI "_s.repeated(100));
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(field.viewport()->rect().contains(field.cursorRect().center()));
    }

private:
    [[nodiscard]] SingleLineTextEdit& cas() const
    {
        return *child<SingleLineTextEdit>(*window, "lineEditCAS");
    }

    void leave() const
    {
        child<QWidget>(*window, "buttonDownload")->setFocus();
        QCoreApplication::processEvents();
    }

    static void askForToolTip(SingleLineTextEdit& field)
    {
        const QPoint position = field.viewport()->rect().center();
        QHelpEvent help(QEvent::ToolTip, position, field.viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(field.viewport(), &help);
    }
};

QTEST_MAIN(TestFieldHint)
#include "tst_fieldhint.moc"
