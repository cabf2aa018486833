// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/longtext.h"
#include "tests/support/sandboxtest.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString lines(int count, const QString& between = u"\n"_s)
{
    QStringList all;
    for (int i = 0; i < count; ++i)
        all.append(i % 7 == 6 ? QString() : u"%1; %2"_s.arg(i).arg(i % 97));
    return all.join(between);
}

/// All that a document says of its lines.
QStringList contents(const QTextDocument& document)
{
    QStringList all{u"%1 lines, %2 characters, modified %3, undo %4 %5"_s.arg(document.blockCount())
                        .arg(document.characterCount())
                        .arg(document.isModified())
                        .arg(document.isUndoRedoEnabled())
                        .arg(document.isUndoAvailable())};
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString fragments;
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            fragments += u" %1+%2 of %3"_s.arg(fragment.fragment().position())
                             .arg(fragment.fragment().length())
                             .arg(fragment.fragment().charFormatIndex());
        }
        all.append(u"%1: %2 (format %3, %4; state %5)%6"_s.arg(block.position())
                       .arg(block.text())
                       .arg(block.blockFormatIndex())
                       .arg(block.charFormatIndex())
                       .arg(block.userState())
                       .arg(fragments));
    }
    return all;
}

} // namespace

/// Long texts are put in as by the toolkit, only faster.
class TestLongText : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void documentIsAsTheToolkitMakesIt_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << QString();
        QTest::newRow("a line") << u"10 1"_s;
        QTest::newRow("some lines") << lines(100);
        QTest::newRow("just long") << lines(256);
        QTest::newRow("long") << lines(20'000);
        QTest::newRow("line feed at the end") << lines(5000) + u'\n';
        QTest::newRow("line feeds alone") << QString(5000, u'\n');
        QTest::newRow("blank lines around") << QString(2000, u'\n') + u"1 2"_s + QString(99, u'\n');
        QTest::newRow("ends of lines of Windows") << lines(5000, u"\r\n"_s);
        QTest::newRow("ends of lines of old") << lines(5000, u"\n\r"_s);
        QTest::newRow("other separators") << lines(5000, u"\u2029\n\u2028"_s);
        QTest::newRow("odd characters") << lines(5000, u"\U0001F600\u00a0\n"_s);
    }

    void documentIsAsTheToolkitMakesIt()
    {
        QFETCH(const QString, text);
        QTextDocument ours;
        LongText::setPlainText(ours, text);
        QTextDocument theirs;
        theirs.setPlainText(text);
        QCOMPARE(contents(ours), contents(theirs));
        QCOMPARE(ours.toPlainText(), theirs.toPlainText());

        QPlainTextEdit ourList;
        LongText::setPlainText(ourList, text);
        QPlainTextEdit theirList;
        theirList.setPlainText(text);
        QCOMPARE(contents(*ourList.document()), contents(*theirList.document()));
    }

    void newTextIsAnnouncedOnceWithTheCaretAtItsStart()
    {
        const auto list = shownList();
        QList<int> carets;
        connect(list.get(), &QPlainTextEdit::textChanged, list.get(),
                [&] { carets.append(list->textCursor().position()); });
        const QSignalSpy changed(list->document(), &QTextDocument::contentsChanged);
        LongText::setPlainText(*list, lines(5000));
        QCOMPARE(carets, QList<int>{0});
        QCOMPARE(changed.size(), 1);
        LongText::setPlainText(*list, lines(6000));
        QCOMPARE(carets, (QList<int>{0, 0}));
    }

    void listIsShownFromItsStart()
    {
        const auto list = shownList();
        LongText::setPlainText(*list, lines(5000));
        list->selectAll();
        list->verticalScrollBar()->setValue(4000);
        QVERIFY(list->verticalScrollBar()->value() > 0);
        LongText::setPlainText(*list, lines(4000));
        QCOMPARE(list->verticalScrollBar()->value(), 0);
        QVERIFY(!list->textCursor().hasSelection());
        QCOMPARE(list->textCursor().position(), 0);
        QCOMPARE(list->cursorForPosition(QPoint(0, 0)).blockNumber(), 0);
    }

    void caretFollowsWhatIsTypedAfterwards()
    {
        const auto list = shownList();
        LongText::setPlainText(*list, lines(5000));
        QTest::keyClicks(list.get(), u"9 8"_s);
        QCOMPARE(list->textCursor().position(), 3);
        QVERIFY(list->toPlainText().startsWith(u"9 80; 0\n1; 1\n"_s));
    }

    void nothingOfItCanBeUndone()
    {
        const auto list = shownList();
        list->insertPlainText(u"typed"_s);
        QVERIFY(list->document()->isUndoAvailable());
        LongText::setPlainText(*list, lines(5000));
        QVERIFY(!list->document()->isUndoAvailable());
        QVERIFY(!list->document()->isModified());
        list->insertPlainText(u"typed"_s);
        list->undo();
        QCOMPARE(list->toPlainText(), lines(5000));
        list->undo();
        QCOMPARE(list->toPlainText(), lines(5000));
    }

    void listThatUndoesNothingStaysSo()
    {
        const auto list = shownList();
        list->setUndoRedoEnabled(false);
        LongText::setPlainText(*list, lines(5000));
        QVERIFY(!list->isUndoRedoEnabled());
    }

private:
    static std::unique_ptr<QPlainTextEdit> shownList()
    {
        auto list = std::make_unique<QPlainTextEdit>();
        list->resize(200, 300);
        list->show();
        return list;
    }
};

QTEST_MAIN(TestLongText)
#include "tst_longtext.moc"
