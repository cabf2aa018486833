// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/sandbox.h"
#include "widgets/singlelinetextedit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMetaProperty>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The window of the fields; keeps account of the keys that reach it.
class Window : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        keys.append(event->key());
        QWidget::keyPressEvent(event);
    }
};

QTextCharFormat superscript()
{
    QTextCharFormat format;
    format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    return format;
}

int documentHeight(const SingleLineTextEdit& field)
{
    return static_cast<int>(field.document()->size().height());
}

} // namespace

/// The one-line rich-text field.
class TestSingleLineTextEdit : public QObject
{
    Q_OBJECT

    std::unique_ptr<Window> window;
    SingleLineTextEdit* before = nullptr;
    SingleLineTextEdit* field = nullptr;
    SingleLineTextEdit* after = nullptr;

    void paste() const { QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier); }

    void pasteText(const QString& text) const
    {
        QGuiApplication::clipboard()->setText(text);
        paste();
    }

private Q_SLOTS:
    void init()
    {
        window = std::make_unique<Window>();
        auto* layout = new QVBoxLayout(window.get());
        before = new SingleLineTextEdit;
        field = new SingleLineTextEdit;
        after = new SingleLineTextEdit;
        layout->addWidget(before);
        layout->addWidget(field);
        layout->addWidget(after);
        QVERIFY(TestSupport::showActive(*window));
        field->setFocus();
        QVERIFY(field->hasFocus());
    }

    void cleanup()
    {
        window.reset();
        QGuiApplication::clipboard()->clear();
    }

    void styleSheetIsNotKeptForWhatNobodySees()
    {
        auto* styled = new SingleLineTextEdit(window.get());
        styled->show();
        QVERIFY(styled->testAttribute(Qt::WA_StyleSheet));
        const QList<QWidget*> parts = styled->findChildren<QWidget*>();
        for (const QWidget* part : parts)
            QVERIFY(!part->testAttribute(Qt::WA_StyleSheet) || part == styled->viewport());
        for (const QScrollBar* bar : {styled->horizontalScrollBar(), styled->verticalScrollBar()}) {
            QVERIFY(!bar->isVisible());
            QCOMPARE(bar->style(), QApplication::style());
        }
    }

    void addsNothingToTheMetaObject()
    {
        const QMetaObject& meta = SingleLineTextEdit::staticMetaObject;
        QCOMPARE(meta.className(), "SingleLineTextEdit");
        QCOMPARE(meta.superClass(), &CleanTextEdit::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QVERIFY(meta.indexOfProperty("cleanedHtml") >= 0);
    }

    void looksLikeALineEdit()
    {
        QWidget parent;
        const auto* fresh = new SingleLineTextEdit(&parent);
        QCOMPARE(fresh->parentWidget(), &parent);
        QVERIFY(fresh->acceptRichText());
        QVERIFY(fresh->tabChangesFocus());
        QCOMPARE(fresh->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(fresh->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(fresh->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(fresh->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(fresh->frameStyle(), 0);
        QCOMPARE(fresh->lineWrapMode(), QTextEdit::NoWrap);
        QCOMPARE(fresh->styleSheet(),
                 u"background-color: white; border: 1px solid gray; padding: 2px;"_s);
    }

    void returnInsertsNoLineBreakButReachesTheParent_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            const char* name = key == Qt::Key_Return ? "Return" : "Enter";
            for (const int modifiers :
                 {int(Qt::NoModifier), int(Qt::ShiftModifier), int(Qt::ControlModifier),
                  int(Qt::AltModifier), int(Qt::KeypadModifier),
                  int(Qt::ShiftModifier | Qt::ControlModifier)})
                QTest::addRow("%s with %x", name, uint(modifiers)) << int(key) << modifiers;
        }
    }

    void returnInsertsNoLineBreakButReachesTheParent()
    {
        QFETCH(const int, key);
        QFETCH(const int, modifiers);
        QTest::keyClicks(field, u"ab"_s);
        const int height = field->height();
        QTest::keyClick(field, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QCOMPARE(window->keys.count(key), 1);
        QCOMPARE(field->cleanedHtml(), u"ab"_s);
        QCOMPARE(field->document()->blockCount(), 1);
        QCOMPARE(field->height(), height);
        QTest::keyClicks(field, u"c"_s);
        QCOMPARE(field->cleanedHtml(), u"abc"_s);
        QCOMPARE(window->keys.count(key), 1);
    }

    void returnLeavesASelectionAlone()
    {
        QTest::keyClicks(field, u"ab"_s);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(field->cleanedHtml(), u"ab"_s);
        QVERIFY(field->textCursor().hasSelection());
    }

    void pastedTextBecomesOneLine_data()
    {
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("line");
        const auto row = [](const char* name, const char* pasted, const char* line) {
            QTest::newRow(name) << QString::fromLatin1(pasted) << QString::fromLatin1(line);
        };
        row("plain", "water", "water");
        row("lines", "one\ntwo\r\nthree\rfour", "one two three four");
        row("tabs", "one\t\ttwo", "one two");
        row("repeated blanks", "one    two", "one two");
        row("white space around", " \t\n one \r\n", "one");
        row("all together", "\n one \t\r\n\n  two\t", "one two");
        row("white space alone", " \n\t ", "");
        row("markup is text", "H<sub>2</sub>O<br>x", "H<sub>2</sub>O<br>x");
        QTest::newRow("line and paragraph separators")
            << u"one\u2028two\u2029three"_s << u"one two three"_s;
        QTest::newRow("no-break space") << u"1\u00a0eV"_s << u"1 eV"_s;
    }

    void pastedTextBecomesOneLine()
    {
        QFETCH(const QString, pasted);
        pasteText(pasted);
        QTEST(field->cleanedHtml(), "line");
        QCOMPARE(field->document()->blockCount(), 1);
    }

    void pasteReplacesTheSelectionAtTheCursor()
    {
        QTest::keyClicks(field, u"abcd"_s);
        QTextCursor cursor = field->textCursor();
        cursor.setPosition(1);
        cursor.setPosition(3, QTextCursor::KeepAnchor);
        field->setTextCursor(cursor);
        pasteText(u" x\ny "_s);
        QCOMPARE(field->cleanedHtml(), u"ax yd"_s);
    }

    void pastedRichTextLeavesItsCharactersOnly()
    {
        auto* data = new QMimeData;
        data->setHtml(u"<p><b>one</b> <font color='red'>t<sup>w</sup>o</font></p>"_s);
        data->setText(u"one two"_s);
        QGuiApplication::clipboard()->setMimeData(data);
        paste();
        QCOMPARE(field->cleanedHtml(), u"one two"_s);
        QVERIFY(!field->toHtml().contains(u"color:#ff0000"));
        QCOMPARE(field->fontWeight(), int(QFont::Normal));
    }

    void pastedImageIsIgnored()
    {
        QTest::keyClicks(field, u"a"_s);
        QImage image(3, 3, QImage::Format_RGB32);
        image.fill(Qt::red);
        QGuiApplication::clipboard()->setImage(image);
        paste();
        QCOMPARE(field->toPlainText(), u"a"_s);
    }

    void pasteTakesTheFormatAtTheCursor()
    {
        QTextCursor cursor = field->textCursor();
        cursor.insertText(u"12"_s, superscript());
        cursor.setPosition(1);
        field->setTextCursor(cursor);
        pasteText(u"x y"_s);
        QCOMPARE(field->cleanedHtml(), u"<sup>1x y2</sup>"_s);
    }

    void typingTakesTheFormatAtTheCursor()
    {
        field->setCleanedHtml(u"a<sub>2</sub>"_s);
        QTest::keyClick(field, Qt::Key_End);
        QTest::keyClicks(field, u"3"_s);
        QCOMPARE(field->cleanedHtml(), u"a<sub>23</sub>"_s);
    }

    void freshFieldIsAsHighAsItsEmptyDocument()
    {
        SingleLineTextEdit fresh;
        QCOMPARE(fresh.minimumHeight(), documentHeight(fresh) + 5);
        QCOMPARE(fresh.maximumHeight(), documentHeight(fresh) + 5);
    }

    void heightFollowsTyping()
    {
        QTest::keyClicks(field, u"water"_s);
        QCOMPARE(field->minimumHeight(), documentHeight(*field) + 5);
        QCOMPARE(field->maximumHeight(), documentHeight(*field) + 5);
        QCOMPARE(field->document()->blockCount(), 1);
    }

    void heightFollowsPasting()
    {
        field->setFontPointSize(40);
        const int oneLine = field->height();
        pasteText(u"water"_s);
        QCOMPARE(field->height(), documentHeight(*field) + 5);
        QVERIFY(field->height() > oneLine);
    }

    void heightFollowsPastingWithoutAKey()
    {
        field->setFontPointSize(40);
        const int oneLine = field->height();
        QGuiApplication::clipboard()->setText(u"water"_s);
        field->paste(); // as the context menu does
        QCOMPARE(field->height(), documentHeight(*field) + 5);
        QVERIFY(field->height() > oneLine);
    }

    void loadingLeavesTheHeightUntilTheNextKey()
    {
        const int oneLine = field->height();
        field->setCleanedHtml(u"one<br>two<br>three"_s);
        QCOMPARE(field->minimumHeight(), oneLine);
        QCOMPARE(field->maximumHeight(), oneLine);
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(field->minimumHeight(), oneLine);

        QTest::keyClick(field, Qt::Key_Right);
        QCOMPARE(field->minimumHeight(), documentHeight(*field) + 5);
        QVERIFY(field->minimumHeight() > oneLine);
        QCOMPARE(field->cleanedHtml(), u"one<br>two<br>three"_s);
    }

    void longTextStaysOnOneLine()
    {
        const int oneLine = field->height();
        pasteText(u"long word "_s.repeated(200));
        QCOMPARE(field->document()->firstBlock().lineCount(), 1);
        QCOMPARE(field->height(), oneLine);
    }

    void tabMovesTheFocus()
    {
        QTest::keyClick(field, Qt::Key_Tab);
        QVERIFY(after->hasFocus());
        QTest::keyClick(after, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(field->hasFocus());
        QTest::keyClick(field, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(before->hasFocus());
        QCOMPARE(field->cleanedHtml(), QString());
    }
};

QTEST_MAIN(TestSingleLineTextEdit)
#include "tst_singlelinetextedit.moc"
