// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/longtext.h"
#include "spectrum/pointlistedit.h"
#include "spectrum/pointrewrites.h"
#include "support/longwork.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandboxtest.h"

#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>

#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QClipboard& clipboard()
{
    return *QGuiApplication::clipboard();
}

} // namespace

/// The list of points: what goes out of it and into it.
class TestPointListEdit : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        SandboxTest::init();
        clipboard().clear();
        list = std::make_unique<PointListEdit>();
        list->setPlainText(u"9.0 1\n9.5 2\n\n10.0 3"_s);
        QVERIFY(TestSupport::showActive(*list));
        list->setFocus();
    }

    void cleanup() override
    {
        list.reset();
        SandboxTest::cleanup();
    }

    void isAPlainTextEditToOthers() { QCOMPARE(list->metaObject()->className(), "QPlainTextEdit"); }

    void copiesItsLinesAsText()
    {
        QTest::keyClick(list.get(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(list.get(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard().text(), u"9.0 1\n9.5 2\n\n10.0 3"_s);
        QCOMPARE(clipboard().mimeData()->formats(), QStringList{u"text/plain"_s});
    }

    void copiesWhatIsSelectedOnly()
    {
        QTest::keyClick(list.get(), Qt::Key_Down);
        QTest::keyClick(list.get(), Qt::Key_End, Qt::ShiftModifier);
        QTest::keyClick(list.get(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(clipboard().text(), u"9.5 2"_s);
        QCOMPARE(list->toPlainText(), u"9.0 1\n\n\n10.0 3"_s);
    }

    void copiesOddBlanksAsTheToolkitTellsThem()
    {
        list->setPlainText(u"1\u00a02\u20283 4"_s);
        list->selectAll();
        list->copy();
        QCOMPARE(clipboard().text(), u"1 2\n3 4"_s);
    }

    void pastesOverTheSelectionAsOneStep()
    {
        clipboard().setText(u"1 2\r\n3 4\n5 6"_s);
        QTest::keyClick(list.get(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(list.get(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(list->toPlainText(), u"1 2\n3 4\n5 6"_s);
        QCOMPARE(list->textCursor().position(), 11);
        QTest::keyClick(list.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(list->toPlainText(), u"9.0 1\n9.5 2\n\n10.0 3"_s);
    }

    void pastesTheTextOfFormattedCells()
    {
        auto cells = std::make_unique<QMimeData>();
        cells->setHtml(u"<table><tr><td>1</td><td>2</td></tr></table>"_s);
        cells->setText(u"1\t2\n"_s);
        clipboard().setMimeData(cells.release());
        QTest::keyClick(list.get(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(list->toPlainText(), u"1\t2\n9.0 1\n9.5 2\n\n10.0 3"_s);
    }

    void pastingAPictureChangesNothing()
    {
        clipboard().setImage(QImage(4, 4, QImage::Format_RGB32));
        QTest::keyClick(list.get(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(list->toPlainText(), u"9.0 1\n9.5 2\n\n10.0 3"_s);
    }

    void pastedEndIsInView()
    {
        clipboard().setText(u"1 2\n"_s.repeated(500));
        QTest::keyClick(list.get(), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(list->viewport()->rect().contains(list->cursorRect().center()));
    }

    void pastesALongTextAsTheToolkitWould_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        const QString lines = u"9.1234 100.5\n"_s.repeated(100'000);
        QTest::newRow("at the start") << lines << 0 << 0;
        QTest::newRow("within a line") << lines << 3 << 3;
        QTest::newRow("over a selection") << lines << 3 << 9;
        QTest::newRow("over a selection made backwards") << lines << 9 << 3;
        QTest::newRow("over everything, without a last end of line") << lines.chopped(1) << 19 << 0;
        QTest::newRow("at the end") << lines << 19 << 19;
        QTest::newRow("of another system") << QString(lines).replace(u"\n"_s, u"\r\n"_s) << 3 << 3;
        QTest::newRow("of an old system") << QString(lines).replace(u'\n', u'\r') << 3 << 3;
        QTest::newRow("with separators of paragraphs and lines")
            << QString(lines).replace(u"5\n9"_s, u"\u2029\u2028"_s) << 3 << 3;
        QTest::newRow("with marks of frames")
            << QString(lines).replace(u"5\n9"_s, u"\ufdd0\ufdd1"_s) << 3 << 3;
        QTest::newRow("one line") << u"9.1234 "_s.repeated(150'000) << 3 << 3;
        QTest::newRow("lines that are wrapped")
            << u"9.123456789012345678901 4.567890123456789e-05\n"_s.repeated(40'000) << 3 << 3;
    }

    void pastesALongTextAsTheToolkitWould()
    {
        QFETCH(const QString, text);
        QFETCH(const int, anchor);
        QFETCH(const int, position);
        const QString before = u"9.0 1\n9.5\u00a02\n\n10.0\u20283"_s;
        QPlainTextEdit theirs;
        for (QPlainTextEdit* edit : {static_cast<QPlainTextEdit*>(list.get()), &theirs}) {
            edit->setPlainText(before);
            QTextCursor caret(edit->document());
            caret.setPosition(anchor);
            caret.setPosition(position, QTextCursor::KeepAnchor);
            edit->setTextCursor(caret);
        }
        const QString rawBefore = list->document()->toRawText();
        theirs.insertPlainText(text);
        clipboard().setText(text);
        QTest::keyClick(list.get(), Qt::Key_V, Qt::ControlModifier);
        const QString after = theirs.document()->toRawText();
        QVERIFY(list->document()->toRawText() == after);
        QCOMPARE(list->textCursor().position(), theirs.textCursor().position());
        QVERIFY(!list->textCursor().hasSelection());
        QCoreApplication::processEvents(); // the view is settled late
        QVERIFY(list->viewport()->rect().contains(list->cursorRect().center()));

        QTest::keyClick(list.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(list->document()->toRawText(), rawBefore);
        QCOMPARE(list->textCursor().anchor(), anchor);
        QCOMPARE(list->textCursor().position(), position);
        QVERIFY(!list->document()->isUndoAvailable());
        QTest::keyClick(list.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(list->document()->toRawText() == after);
    }

    void textIsDroppedAtOnceAndInOneStep_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Qt::DropAction>("action");
        const QString longText = u"1 2\n"_s.repeated(300'000);
        QTest::newRow("long, copied") << longText << Qt::CopyAction;
        QTest::newRow("long, moved") << longText << Qt::MoveAction;
        QTest::newRow("short, copied") << u"1 2\n"_s.repeated(30) << Qt::CopyAction;
    }

    // What is moved is taken away where it was as soon as the drop has been taken.
    void textIsDroppedAtOnceAndInOneStep()
    {
        QFETCH(const QString, text);
        QFETCH(const Qt::DropAction, action);
        LongWork::setPatience(std::chrono::milliseconds(0));
        QVERIFY(drop(text, action));
        QCOMPARE(list->blockCount(), text.count(u'\n') + 4);
        QCOMPARE(list->document()->firstBlock().text(), u"9.0 1"_s);
        QCOMPARE(list->document()->lastBlock().text(), u"10.0 3"_s);
        list->undo();
        QCOMPARE(list->toPlainText(), u"9.0 1\n9.5 2\n\n10.0 3"_s);
    }

    void nothingIsDroppedInTheMiddleOfLongWork()
    {
        {
            const LongWork work(list.get(), u"Counting"_s);
            QVERIFY(!drop(u"1 2\n"_s, Qt::CopyAction));
            QCOMPARE(list->toPlainText(), u"9.0 1\n9.5 2\n\n10.0 3"_s);
        }
        QVERIFY(drop(u"1 2\n"_s, Qt::CopyAction));
    }

    void longPasteWithoutUndoing()
    {
        list->setUndoRedoEnabled(false);
        clipboard().setText(u"3 4\n"_s.repeated(300'000));
        QTest::keyClick(list.get(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(list->blockCount(), 300'004);
        QCOMPARE(list->document()->lastBlock().text(), u"10.0 3"_s);
    }

    void readOnlyListTakesNoLongPaste()
    {
        list->setReadOnly(true);
        clipboard().setText(u"3 4\n"_s.repeated(300'000));
        list->paste();
        QCOMPARE(list->toPlainText(), u"9.0 1\n9.5 2\n\n10.0 3"_s);
    }

    void longPasteForgetsNothing()
    {
        list->setPlainText(u"1 2\n"_s.repeated(PointRewrites::mostKeptLines + 10));
        QTest::keyClicks(list.get(), u"7"_s);
        clipboard().setText(u"3 4\n"_s.repeated(300'000));
        QTest::keyClick(list.get(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(list->document()->firstBlock().text(), u"73 4"_s);
        QTest::keyClick(list.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(list->document()->firstBlock().text(), u"71 2"_s);
        QTest::keyClick(list.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(list->document()->firstBlock().text(), u"1 2"_s);
    }

    void wrapsLinesForTheWidthThatItIsShownWith_data()
    {
        QTest::addColumn<QList<int>>("whileHidden");
        QTest::addColumn<int>("shown");
        QTest::newRow("as made") << QList<int>{} << 200;
        QTest::newRow("narrower") << QList<int>{} << 120;
        QTest::newRow("wider") << QList<int>{} << 420;
        QTest::newRow("changed and back") << QList<int>{420} << 200;
        QTest::newRow("changed twice") << QList<int>{420, 120} << 300;
    }

    // A list that is not shown hears of its size late.
    void wrapsLinesForTheWidthThatItIsShownWith()
    {
        QFETCH(const QList<int>, whileHidden);
        QFETCH(const int, shown);
        const QString text = u"many words in a line "_s.repeated(8) + u"\n1 2"_s.repeated(2000);
        PointListEdit ours;
        QPlainTextEdit theirs;
        ours.resize(200, 300);
        LongText::setPlainText(ours, text);
        for (const int width : whileHidden)
            ours.resize(width, 300);
        ours.resize(shown, 300);
        theirs.resize(shown, 300);
        theirs.show();
        theirs.setPlainText(text);
        ours.show();
        QTRY_COMPARE(topOfSecondLine(ours), topOfSecondLine(theirs));

        // Once more, with what it knows of its lines by now.
        ours.hide();
        for (const int width : whileHidden)
            ours.resize(width, 300);
        ours.resize(shown + 60, 300);
        theirs.resize(shown + 60, 300);
        ours.show();
        QTRY_COMPARE(topOfSecondLine(ours), topOfSecondLine(theirs));
    }

private:
    /// On the last line; whether it was taken.
    bool drop(const QString& text, Qt::DropAction action)
    {
        QMimeData dragged;
        dragged.setText(text);
        const QPoint place = list->cursorRect(QTextCursor(list->document()->lastBlock())).center();
        QDragEnterEvent enter(place, action, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(list->viewport(), &enter);
        QDropEvent dropped(place, action, &dragged, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(list->viewport(), &dropped);
        return dropped.isAccepted();
    }

    /// Where the second line stands, below all rows of the first.
    static int topOfSecondLine(const QPlainTextEdit& edit)
    {
        return edit.cursorRect(QTextCursor(edit.document()->findBlockByNumber(1))).top();
    }

    std::unique_ptr<PointListEdit> list;
};

QTEST_MAIN(TestPointListEdit)
#include "tst_pointlistedit.moc"
