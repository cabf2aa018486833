// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointrewrites.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/spectrumtest.h"

#include <QJsonArray>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

using Points = QList<QPointF>;

void click(const SpectrumWindow& window, const char* button)
{
    QTest::mouseClick(child<QPushButton>(window, button), Qt::LeftButton);
}

void undo(const SpectrumWindow& window)
{
    QTest::keyClick(pointEditor(window), Qt::Key_Z, Qt::ControlModifier);
}

void redo(const SpectrumWindow& window)
{
    QTest::keyClick(pointEditor(window), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
}

QString textOf(const SpectrumWindow& window)
{
    return pointEditor(window)->toPlainText();
}

/// Line and column of the caret, and the line at the top of the list.
QList<int> viewOf(const SpectrumWindow& window)
{
    const auto* list = pointEditor(window);
    const QTextCursor caret = list->textCursor();
    return {caret.blockNumber(), caret.positionInBlock(),
            list->cursorForPosition(QPoint(0, 0)).blockNumber()};
}

/// A heading, an empty line, and points 1 meV apart.
QString longText(int points)
{
    QString text = u"E I\n\n"_s;
    for (int i = 0; i < points; ++i)
        text += u"%1 %2\n"_s.arg(10 + i * 0.001, 0, 'f', 3).arg(i + 1);
    return text;
}

} // namespace

/// Normalize, Sparse and the comma button are taken back as typing is.
class TestPointRewrites : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void commandIsOneStep_data()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::newRow("Normalize") << QByteArray("buttonNormalize") << u"E I\n10 5\n\n11 10\n"_s
                                   << u"10.0000 500.00\n11.0000 1000.00"_s;
        QTest::newRow("Sparse") << QByteArray("buttonSparse") << u"10.000 0\n# x\n10.004 4"_s
                                << u"10.001 1.00\n10.002 2.00\n10.003 3.00"_s;
        QTest::newRow("Sparse that empties") << QByteArray("buttonSparse") << u"10 1"_s << u""_s;
        QTest::newRow("comma") << QByteArray("buttonCommaToDot") << u"1,5 2,0\n\n3,5 4,0"_s
                               << u"1.5 2.0\n\n3.5 4.0"_s;
    }
    void commandIsOneStep()
    {
        QFETCH(QByteArray, button);
        QFETCH(QString, before);
        QFETCH(QString, after);
        const auto* window = show();
        setPoints(*window, before);
        click(*window, button.constData());
        QCOMPARE(textOf(*window), after);
        for (int round = 0; round < 2; ++round) {
            undo(*window);
            QCOMPARE(textOf(*window), before);
            undo(*window);
            QCOMPARE(textOf(*window), before);
            redo(*window);
            QCOMPARE(textOf(*window), after);
            redo(*window);
            QCOMPARE(textOf(*window), after);
        }
    }

    // Whoever hears of the new text may ask for the points, or have them told at once.
    void pointsAreNewWhenTheTextIs_data()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::newRow("Normalize") << QByteArray("buttonNormalize");
        QTest::newRow("Sparse") << QByteArray("buttonSparse");
    }
    void pointsAreNewWhenTheTextIs()
    {
        QFETCH(const QByteArray, button);
        const auto* window = show();
        setPoints(*window, u"10.000 0\n10.004 4"_s);
        SpectrumModel* model = window->model();
        QList<Points> seen;
        int told = 0;
        connect(model, &SpectrumModel::spectrumDataChanged, this, [&told] { ++told; });
        const auto onText = connect(pointEditor(*window), &QPlainTextEdit::textChanged, this, [&] {
            seen.append(model->points());
            QMetaObject::invokeMethod(model, "emitSpectrumDataChanged", Qt::DirectConnection);
        });
        click(*window, button.constData());
        disconnect(onText);
        QVERIFY(!seen.isEmpty());
        for (const Points& points : std::as_const(seen))
            QCOMPARE(points, model->points());
        QCOMPARE(told, seen.size() + 1);
    }

    void typingAndCommandsAreTakenBackInOrder()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        QStringList texts{QString()};
        const auto remember = [&] { texts += textOf(*window); };
        const auto takeOver = [&] {
            QMetaObject::invokeMethod(window->model(), "emitSpectrumDataChanged");
        };
        QTest::keyClicks(list, u"10 5"_s);
        remember();
        takeOver();
        click(*window, "buttonNormalize");
        remember();
        QTest::keyClick(list, Qt::Key_End);
        QTest::keyClicks(list, u"7,"_s);
        remember();
        click(*window, "buttonCommaToDot");
        remember();
        QTest::keyClick(list, Qt::Key_End);
        QTest::keyClick(list, Qt::Key_Backspace);
        remember();
        takeOver();
        click(*window, "buttonNormalize");
        remember();
        QCOMPARE(texts.at(4), u"10.0000 1000.007."_s);
        QCOMPARE(texts.size(), 7);
        for (int i = 5; i >= 0; --i) {
            undo(*window);
            QCOMPARE(textOf(*window), texts.at(i));
        }
        for (int i = 1; i <= 6; ++i) {
            redo(*window);
            QCOMPARE(textOf(*window), texts.at(i));
        }
    }

    void menuOfTheListTakesBackToo()
    {
        const auto* window = show();
        setPoints(*window, u"1,5 2"_s);
        click(*window, "buttonCommaToDot");
        const std::unique_ptr<QMenu> menu(pointEditor(*window)->createStandardContextMenu());
        QAction* undoing = menu->actions().constFirst();
        QVERIFY(undoing->isEnabled());
        undoing->trigger();
        QCOMPARE(textOf(*window), u"1,5 2"_s);
    }

    void textThatCameBackCountsAfterThePause()
    {
        const auto* window = show();
        setPoints(*window, u"10 5\n11 10"_s);
        click(*window, "buttonNormalize");
        window->model()->findChild<QTimer*>()->stop(); // from setting the points
        QSignalSpy changes(window->model(), &SpectrumModel::spectrumDataChanged);
        document->modifications = 0;
        undo(*window);
        QVERIFY(document->modifications > 0);
        QCOMPARE(changes.count(), 0);
        QCOMPARE(window->model()->points(), (Points{{10, 500}, {11, 1000}}));
        QVERIFY(changes.wait(patience));
        QCOMPARE(window->model()->points(), (Points{{10, 5}, {11, 10}}));
        QCOMPARE(drawn(*window), (Points{{10, 5}, {11, 10}}));
        redo(*window);
        QVERIFY(changes.wait(patience));
        QCOMPARE(drawn(*window), (Points{{10, 500}, {11, 1000}}));
    }

    void whatACommandDidNotKnowYetComesBack()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        setPoints(*window, u"10 5"_s);
        QTest::keyClick(list, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(list, u"\r11 10"_s);
        click(*window, "buttonNormalize");
        QCOMPARE(textOf(*window), u"10.0000 1000.00"_s);
        undo(*window);
        QCOMPARE(textOf(*window), u"10 5\n11 10"_s);
    }

    void loadingCannotBeTakenBack()
    {
        const QJsonObject dataset{{u"E"_s, QJsonArray{1, 2}}, {u"I"_s, QJsonArray{3, 4}}};
        auto* window = show(dataset);
        undo(*window);
        QCOMPARE(textOf(*window), u"1; 3\n2; 4"_s);
        click(*window, "buttonNormalize");
        window->model()->fromJson(dataset);
        undo(*window);
        QCOMPARE(textOf(*window), u"1; 3\n2; 4"_s);
        redo(*window);
        QCOMPARE(textOf(*window), u"1; 3\n2; 4"_s);
    }

    void caretAndViewStayAtTheirPoint_data()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<int>("shift"); // in lines
        QTest::newRow("Normalize drops two lines") << QByteArray("buttonNormalize") << -2;
        QTest::newRow("Sparse drops the first point too") << QByteArray("buttonSparse") << -3;
        QTest::newRow("comma changes no line") << QByteArray("buttonCommaToDot") << 0;
    }
    void caretAndViewStayAtTheirPoint()
    {
        QFETCH(QByteArray, button);
        QFETCH(int, shift);
        const auto* window = show();
        setPoints(*window, longText(400).replace(u'I', u','));
        auto* list = pointEditor(*window);
        QTextCursor caret(list->document()->findBlockByNumber(203));
        caret.setPosition(caret.position() + 3);
        list->setTextCursor(caret);
        list->verticalScrollBar()->setValue(200);
        QCOMPARE(viewOf(*window), (QList<int>{203, 3, 200}));
        click(*window, button.constData());
        const QList<int> after{203 + shift, 3, 200 + shift};
        QCOMPARE(viewOf(*window), after);
        list->moveCursor(QTextCursor::Start);
        undo(*window);
        QTRY_COMPARE(viewOf(*window), (QList<int>{203, 3, 200}));
        list->moveCursor(QTextCursor::End);
        redo(*window);
        QTRY_COMPARE(viewOf(*window), after);
    }

    void selectionStaysOnItsLines()
    {
        const auto* window = show();
        setPoints(*window, u"E I\n10 5\n11 10\n12 1"_s);
        auto* list = pointEditor(*window);
        QTextCursor caret(list->document()->findBlockByNumber(3));
        caret.movePosition(QTextCursor::Up, QTextCursor::KeepAnchor);
        list->setTextCursor(caret);
        click(*window, "buttonNormalize");
        QCOMPARE(list->textCursor().selectedText(), u"11.0000 1000.00\u2029"_s);
    }

    void commandThatChangesNothingIsNoStep()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        QTest::keyClicks(list, u"1.5 2"_s);
        const QSignalSpy announced(list, &QPlainTextEdit::textChanged);
        click(*window, "buttonCommaToDot");
        QCOMPARE(announced.count(), 1);
        undo(*window);
        QCOMPARE(textOf(*window), QString());
    }

    void whatIsKeptIsBounded()
    {
        QPlainTextEdit list;
        const QString one = u"1 2\n"_s.repeated(60'000);
        const QString other = u"3 4\n"_s.repeated(60'000);
        PointRewrites& rewrites = PointRewrites::of(list);
        for (int i = 0; i < 9; ++i)
            rewrites.replaceText(i % 2 == 0 ? one : other);
        qsizetype broughtBack = 0;
        while (list.document()->isUndoAvailable()) {
            list.undo();
            QVERIFY(list.toPlainText() == (broughtBack / 60'001 % 2 == 0 ? other : one));
            broughtBack += list.blockCount();
        }
        QVERIFY(broughtBack > 0);
        QVERIFY(broughtBack <= PointRewrites::mostKeptLines);
    }

    void whatWasTakenBackMakesRoomForMore()
    {
        QPlainTextEdit list;
        PointRewrites& rewrites = PointRewrites::of(list);
        list.setPlainText(u"1 2\n"_s.repeated(60'000));
        for (int i = 0; i < 9; ++i) {
            rewrites.replaceText(u"3 %1"_s.arg(i));
            list.undo();
        }
        rewrites.replaceText(u"5 6"_s);
        list.undo();
        QVERIFY(!list.document()->isUndoAvailable());
        QCOMPARE(list.blockCount(), 60'001);
    }

    void whatCanNoLongerBeReachedIsNotKept()
    {
        QPlainTextEdit list;
        PointRewrites& rewrites = PointRewrites::of(list);
        list.setPlainText(u"1 2"_s);
        rewrites.replaceText(u"3 4"_s);
        const QPointer<QTextDocument> undone = list.document();
        list.undo();
        QVERIFY(undone);
        QTest::keyClick(&list, Qt::Key_5);
        QVERIFY(!undone);
        QVERIFY(!list.document()->isRedoAvailable());

        const QPointer<QTextDocument> replaced = list.document();
        rewrites.replaceText(u"5 6"_s);
        QVERIFY(replaced);
        list.setPlainText(u"7 8"_s);
        QVERIFY(!replaced);
        QVERIFY(!list.document()->isUndoAvailable());
    }

    void listWithoutUndoingIsReplacedAllTheSame()
    {
        QPlainTextEdit list;
        list.setUndoRedoEnabled(false);
        list.setPlainText(u"1 2"_s);
        const QSignalSpy announced(&list, &QPlainTextEdit::textChanged);
        PointRewrites::of(list).replaceText(u"3 4"_s);
        QCOMPARE(list.toPlainText(), u"3 4"_s);
        QCOMPARE(announced.count(), 1);
        list.undo();
        QCOMPARE(list.toPlainText(), u"3 4"_s);
    }

    void textComesBackInTheFontOfTheDay()
    {
        const auto* window = show();
        auto* list = pointEditor(*window);
        setPoints(*window, u"1,5 2"_s);
        click(*window, "buttonCommaToDot");
        QFont larger = list->font();
        larger.setPointSize(larger.pointSize() + 8);
        list->setFont(larger);
        const int height = list->cursorRect().height();
        undo(*window);
        QCOMPARE(textOf(*window), u"1,5 2"_s);
        QCOMPARE(list->cursorRect().height(), height);
        QTest::keyClick(list, Qt::Key_End);
        QTest::keyClick(list, Qt::Key_Backspace);
        QCOMPARE(textOf(*window), u"1,5 "_s);
    }

    void longestTextCanBeTakenBackOnce()
    {
        QPlainTextEdit list;
        const QString before = u"1,2\n"_s.repeated(300'000);
        const QString after = u"1.2\n"_s.repeated(300'000);
        PointRewrites& rewrites = PointRewrites::of(list);
        list.setPlainText(before);
        rewrites.replaceText(after);
        QVERIFY(list.document()->availableUndoSteps() > 0);
        list.undo();
        QVERIFY(list.toPlainText() == before);
    }

    void charactersOfOldTextsAreNotKeptForEver()
    {
        QPlainTextEdit list;
        list.setLineWrapMode(QPlainTextEdit::NoWrap);
        const QString line(10'000, u' ');
        const QString one = QString(line + u'\n').repeated(400);
        const QString other = QString(line + u"x\n"_s).repeated(400);
        PointRewrites& rewrites = PointRewrites::of(list);
        for (int i = 0; i < 9; ++i)
            rewrites.replaceText(i % 2 == 0 ? one : other);
        qsizetype broughtBack = 0;
        while (list.document()->isUndoAvailable()) {
            list.undo();
            broughtBack += list.document()->characterCount();
        }
        QVERIFY(broughtBack > 0);
        QVERIFY2(broughtBack <= 20'100'000, qPrintable(QString::number(broughtBack)));
    }
};

QTEST_MAIN(TestPointRewrites)
#include "tst_pointrewrites.moc"
