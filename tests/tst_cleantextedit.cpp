// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/cleanedhtml.h"
#include "support/textextent.h"
#include "tests/support/dialogscript.h"
#include "tests/support/sandbox.h"
#include "widgets/cleantextedit.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMetaProperty>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A field between two others, shown and with the focus.
struct Form
{
    QWidget window;
    QLineEdit* before = new QLineEdit;
    CleanTextEdit* field = new CleanTextEdit;
    QLineEdit* after = new QLineEdit;

    Form()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(before);
        layout->addWidget(field);
        layout->addWidget(after);
    }

    [[nodiscard]] bool show()
    {
        if (!TestSupport::showActive(window))
            return false;
        field->setFocus();
        return field->hasFocus();
    }
};

void copyRichText(const QString& html, const QString& text)
{
    auto* data = new QMimeData;
    data->setHtml(html);
    data->setText(text);
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace

/// The multi-line rich-text field.
class TestCleanTextEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QGuiApplication::clipboard()->clear(); }

    void emptyFieldStaysAsItWasMade()
    {
        CleanTextEdit untouched;
        const int revision = untouched.document()->revision();
        const QSignalSpy announced(&untouched, &CleanTextEdit::cleanedHtmlChanged);
        untouched.setCleanedHtml({});
        QCOMPARE(announced.count(), 1);
        QCOMPARE(untouched.document()->revision(), revision);
        QCOMPARE(untouched.cleanedHtml(), QString());
        untouched.setCleanedHtml(u"H<sub>2</sub>"_s);
        untouched.setCleanedHtml({});
        QCOMPARE(untouched.cleanedHtml(), QString());
    }

    void contentIsAPropertyThatAnnouncesItsChanges()
    {
        const QMetaObject& meta = CleanTextEdit::staticMetaObject;
        QCOMPARE(meta.className(), "CleanTextEdit");
        QCOMPARE(meta.superClass(), &QTextEdit::staticMetaObject);
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
        const QMetaProperty property = meta.property(meta.indexOfProperty("cleanedHtml"));
        QCOMPARE(property.metaType(), QMetaType::fromType<QString>());
        QVERIFY(property.isReadable());
        QVERIFY(property.isWritable());
        QVERIFY(property.isStored());
        QVERIFY(property.isDesignable());
        QVERIFY(property.isScriptable());
        QVERIFY(!property.isUser());
        QCOMPARE(property.notifySignal().methodSignature(), "cleanedHtmlChanged()");
    }

    void hasOnePublicSignalAndOnePrivateSlot()
    {
        const QMetaObject& meta = CleanTextEdit::staticMetaObject;
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
        const QMetaMethod signal = meta.method(meta.indexOfSignal("cleanedHtmlChanged()"));
        QCOMPARE(signal.access(), QMetaMethod::Public);
        const QMetaMethod slot = meta.method(meta.indexOfSlot("onTextChanged()"));
        QCOMPARE(slot.access(), QMetaMethod::Private);
    }

    void isEmptyAtFirst()
    {
        QWidget parent;
        const auto* field = new CleanTextEdit(&parent);
        QCOMPARE(field->parentWidget(), &parent);
        QCOMPARE(field->cleanedHtml(), QString());
        QVERIFY(field->tabChangesFocus());
        QVERIFY(!field->acceptRichText());
    }

    void loadedContentReadsBackTheSame_data()
    {
        QTest::addColumn<QString>("html");
        for (const char* html :
             {"", "water", "H<sub>2</sub>O", "H<sub>3</sub>O<sup>+</sup>", "a<br>b<br>c",
              "<sup>2</sup>P<sub>3/2</sub><br>R&D", "resolution < 10 meV", "<", "a<b", "1 > 2"})
            QTest::newRow(html) << QString::fromLatin1(html);
        QTest::newRow("no-break space") << u"1\u00a0eV"_s;
    }

    void loadedContentReadsBackTheSame()
    {
        QFETCH(const QString, html);
        CleanTextEdit field;
        field.setCleanedHtml(html);
        QCOMPARE(field.cleanedHtml(), html);
        field.setCleanedHtml(field.cleanedHtml());
        QCOMPARE(field.cleanedHtml(), html);
    }

    void propertyLoadsAndReadsTheSameContent()
    {
        CleanTextEdit field;
        QVERIFY(field.setProperty("cleanedHtml", u"H<sub>2</sub>O"_s));
        QCOMPARE(field.toPlainText(), u"H2O"_s);
        QCOMPARE(field.property("cleanedHtml").toString(), u"H<sub>2</sub>O"_s);
    }

    void loadedMarkupRaisesAndLowersCharacters()
    {
        CleanTextEdit field;
        field.setCleanedHtml(u"a<sup>b</sup><sub>c</sub>"_s);
        QTextCursor cursor = field.textCursor();
        cursor.setPosition(1);
        QCOMPARE(cursor.charFormat().verticalAlignment(), QTextCharFormat::AlignNormal);
        cursor.setPosition(2);
        QCOMPARE(cursor.charFormat().verticalAlignment(), QTextCharFormat::AlignSuperScript);
        cursor.setPosition(3);
        QCOMPARE(cursor.charFormat().verticalAlignment(), QTextCharFormat::AlignSubScript);
    }

    void loadedLineBreakStaysInsideTheParagraph()
    {
        CleanTextEdit field;
        field.setCleanedHtml(u"a<br>b"_s);
        QCOMPARE(field.document()->blockCount(), 1);
        QCOMPARE(field.toPlainText(), u"a\nb"_s);
    }

    void loadingReplacesAllContent()
    {
        CleanTextEdit field;
        field.setCleanedHtml(u"first<br>second"_s);
        field.setCleanedHtml(u"third"_s);
        QCOMPARE(field.cleanedHtml(), u"third"_s);
        field.setCleanedHtml(QString());
        QCOMPARE(field.cleanedHtml(), QString());
    }

    void textAfterAnEndlessWordBreaksBetweenWordsAgain_data()
    {
        QTest::addColumn<bool>("pasted");
        QTest::newRow("loaded") << false;
        QTest::newRow("pasted") << true;
    }

    void textAfterAnEndlessWordBreaksBetweenWordsAgain()
    {
        QFETCH(const bool, pasted);
        Form form;
        QVERIFY(form.show());
        const QTextOption::WrapMode atFirst = form.field->wordWrapMode();
        const QString endless(10'000, u'x');
        if (pasted) {
            QGuiApplication::clipboard()->setText(endless);
            form.field->paste();
        } else {
            form.field->setCleanedHtml(endless);
        }
        QCOMPARE(form.field->wordWrapMode(), QTextOption::WrapAnywhere);
        QCOMPARE(form.field->cleanedHtml(), endless);

        form.field->setCleanedHtml(u"words that are <sup>not</sup> endless"_s);
        QCOMPARE(form.field->wordWrapMode(), atFirst);
        QCOMPARE(form.field->cleanedHtml(), u"words that are <sup>not</sup> endless"_s);
    }

    void everyChangeIsAnnounced()
    {
        Form form;
        QVERIFY(form.show());
        const QSignalSpy changes(form.field, &CleanTextEdit::cleanedHtmlChanged);
        form.field->setCleanedHtml(u"a"_s);
        QVERIFY(changes.count() > 0);
        const auto afterLoading = changes.count();
        QTest::keyClicks(form.field, u"bc"_s);
        QCOMPARE(changes.count(), afterLoading + 2);
        QTest::keyClick(form.field, Qt::Key_Left);
        QCOMPARE(changes.count(), afterLoading + 2);
    }

    void announcementComesWhenTheNewContentCanBeRead()
    {
        CleanTextEdit field;
        QString seen;
        connect(&field, &CleanTextEdit::cleanedHtmlChanged, this,
                [&] { seen = field.cleanedHtml(); });
        QTest::keyClicks(&field, u"a"_s);
        QCOMPARE(seen, u"a"_s);
    }

    void copiedTextKeepsItsFormatForOtherPrograms()
    {
        Form form;
        QVERIFY(form.show());
        form.field->setCleanedHtml(u"H<sub>2</sub>O"_s);
        QTest::keyClick(form.field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(form.field, Qt::Key_C, Qt::ControlModifier);
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(copied->text(), u"H2O"_s);
        QTextEdit otherProgram;
        otherProgram.setHtml(copied->html());
        QCOMPARE(CleanedHtml::fromDocument(*otherProgram.document()), u"H<sub>2</sub>O"_s);
    }

    void contextMenuIsGoneAfterUse()
    {
        Form form;
        QVERIFY(form.show());
        DialogScript menus;
        for (int use = 0; use < 2; ++use) {
            menus.expect([](QWidget& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
            QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(5, 5),
                                      form.field->mapToGlobal(QPoint(5, 5)));
            QCoreApplication::sendEvent(form.field->viewport(), &request);
            QTRY_VERIFY2(menus.passed(), menus.report().constData());
        }
        QTRY_VERIFY(form.window.findChildren<QMenu*>().isEmpty());
    }

    void enterStartsANewLine_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("Return") << int(Qt::Key_Return) << int(Qt::NoModifier);
        QTest::newRow("Enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
        QTest::newRow("Shift+Return") << int(Qt::Key_Return) << int(Qt::ShiftModifier);
    }

    void enterStartsANewLine()
    {
        QFETCH(const int, key);
        QFETCH(const int, modifiers);
        Form form;
        QVERIFY(form.show());
        const auto breakLine = [&] {
            QTest::keyClick(form.field, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        };
        QTest::keyClicks(form.field, u"one"_s);
        breakLine();
        QTest::keyClicks(form.field, u"two"_s);
        breakLine();
        QTest::keyClicks(form.field, u"three"_s);
        QCOMPARE(form.field->cleanedHtml(), u"one<br>two<br>three"_s);
    }

    void typedSpecialCharactersAreNotEscaped()
    {
        Form form;
        QVERIFY(form.show());
        QTest::keyClicks(form.field, u"a < b & c > d <i>"_s);
        QCOMPARE(form.field->cleanedHtml(), u"a < b & c > d <i>"_s);
    }

    void typedFormattingIsDropped()
    {
        Form form;
        QVERIFY(form.show());
        form.field->setFontWeight(QFont::Bold);
        form.field->setFontItalic(true);
        form.field->setTextColor(Qt::red);
        QTest::keyClicks(form.field, u"loud"_s);
        QCOMPARE(form.field->fontWeight(), int(QFont::Bold));
        QCOMPARE(form.field->cleanedHtml(), u"loud"_s);
    }

    void tabMovesTheFocus()
    {
        Form form;
        QVERIFY(form.show());
        QTest::keyClick(form.field, Qt::Key_Tab);
        QVERIFY(form.after->hasFocus());
        form.field->setFocus();
        QTest::keyClick(form.field, Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(form.before->hasFocus());
        QCOMPARE(form.field->cleanedHtml(), QString());
    }

    void pastedRichTextIsPlainWithItsLines()
    {
        Form form;
        QVERIFY(form.show());
        copyRichText(u"<p><b>one</b> <sup>1</sup></p><p>two</p>"_s, u"one 1\ntwo"_s);
        QTest::keyClick(form.field, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(form.field->cleanedHtml(), u"one 1<br>two"_s);
        QCOMPARE(form.field->document()->blockCount(), 2);
        QCOMPARE(form.field->fontWeight(), int(QFont::Normal));
    }

    void copiedAndPastedMarkupIsPlain()
    {
        Form form;
        QVERIFY(form.show());
        form.field->setCleanedHtml(u"H<sub>2</sub>O"_s);
        QTest::keyClick(form.field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(form.field, Qt::Key_C, Qt::ControlModifier);
        QTest::keyClick(form.field, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(form.field, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(form.field->cleanedHtml(), u"H<sub>2</sub>OH2O"_s);
    }

    void endOfAnEndlessTextIsSeenAsDots()
    {
        Form form;
        QVERIFY(form.show());
        const QString text = u"x<br>"_s.repeated(30'000);
        form.field->setCleanedHtml(text);
        QCOMPARE(form.field->cleanedHtml(), text);
        form.field->moveCursor(QTextCursor::End);
        const QImage withDots = form.field->viewport()->grab().toImage();
        QTest::keyClick(form.field, Qt::Key_Backspace); // takes the rest away, as it looks
        QCOMPARE(form.field->cleanedHtml(), u"x<br>"_s.repeated(10'001));
        QVERIFY(form.field->viewport()->grab().toImage() != withDots);
    }

    void endlessTextIsToldOnceAndWhole()
    {
        Form form;
        const QString text = u"x<br>"_s.repeated(30'000);
        QStringList told;
        connect(form.field, &CleanTextEdit::cleanedHtmlChanged, form.field,
                [&form, &told] { told.append(form.field->cleanedHtml()); });
        form.field->setCleanedHtml(text);
        QCOMPARE(told, QStringList{text});
    }

    void whatPicturesStandForIsCopied_data()
    {
        QTest::addColumn<QString>("html");
        QTest::addColumn<QString>("copied");
        QTest::newRow("rest of a text") << u"x<br>"_s.repeated(30'000) << u"x\n"_s.repeated(30'000);
        const QString marks = u"a\u0301"_s + u"\u0301"_s.repeated(800) + u"b"_s;
        QTest::newRow("marks") << marks << marks;
        const QString both = marks + u"<br>"_s + marks + u"<br>x"_s.repeated(30'000);
        QTest::newRow("both") << both << QString(both).replace(u"<br>"_s, u"\n"_s);
    }

    void whatPicturesStandForIsCopied()
    {
        QFETCH(const QString, html);
        Form form;
        QVERIFY(form.show());
        form.field->setCleanedHtml(html);
        QTest::keyClick(form.field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(form.field, Qt::Key_X, Qt::ControlModifier);
        QTEST(QGuiApplication::clipboard()->text(), "copied");
        QVERIFY(!QGuiApplication::clipboard()->mimeData()->hasHtml()); // it would have pictures
        QCOMPARE(form.field->cleanedHtml(), QString());
        QTest::keyClick(form.field, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(form.field->cleanedHtml(), html);
    }

    void whatIsEnteredBehindAPictureIsText_data()
    {
        QTest::addColumn<QString>("html");
        QTest::newRow("rest of a text") << u"x<br>"_s.repeated(30'000);
        QTest::newRow("marks") << u"a"_s + u"\u0301"_s.repeated(800);
    }

    void whatIsEnteredBehindAPictureIsText()
    {
        QFETCH(const QString, html);
        Form form;
        QVERIFY(form.show());
        form.field->setCleanedHtml(html);
        form.field->moveCursor(QTextCursor::End);
        QTest::keyClicks(form.field, u"end"_s);
        QCOMPARE(form.field->cleanedHtml(), html + u"end");
        form.field->setCleanedHtml(html);
        form.field->moveCursor(QTextCursor::End);
        QGuiApplication::clipboard()->setText(u"y\n"_s.repeated(30'000));
        form.field->paste();
        QVERIFY(form.field->cleanedHtml() == html + u"y<br>"_s.repeated(30'000));
    }

    void endlessPaste_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("html");
        QTest::newRow("lines") << u"x\n"_s.repeated(30'000) << u"x<br>"_s.repeated(30'000);
        QTest::newRow("lines of another system")
            << u"x\r\n"_s.repeated(30'000) << u"x<br>"_s.repeated(30'000);
        QTest::newRow("paragraphs") << u"x\u2029"_s.repeated(30'000) << u"x<br>"_s.repeated(30'000);
        QTest::newRow("lines of a document")
            << u"x\u2028"_s.repeated(30'000) << u"x<br>"_s.repeated(30'000);
        const QString words = u"photoelectron "_s.repeated(250'000);
        QTest::newRow("words") << words << words;
    }

    void endlessPaste()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, html);
        Form form;
        QVERIFY(form.show());
        form.field->setCleanedHtml(u"ab"_s);
        form.field->moveCursor(QTextCursor::End);
        form.field->moveCursor(QTextCursor::PreviousCharacter);
        QGuiApplication::clipboard()->setText(text);
        form.field->paste();
        QVERIFY(form.field->document()->characterCount() < 3'100'000);
        QVERIFY(form.field->document()->blockCount() < 11'000);
        QCOMPARE(form.field->cleanedHtml(), u'a' + html + u'b');
        form.field->undo();
        QCOMPARE(form.field->cleanedHtml(), u"ab"_s);
        form.field->redo();
        QCOMPARE(form.field->cleanedHtml(), u'a' + html + u'b');
    }

    void longTextThatIsCoveredIsLaidOutWhenItIsSeen()
    {
        Form form;
        QVERIFY(form.show());
        form.field->setCleanedHtml(u"photoelectron "_s.repeated(100));
        const double width = form.field->document()->textWidth();
        form.window.setUpdatesEnabled(false);
        form.field->resize(form.field->width() / 2, form.field->height());
        QCOMPARE(form.field->document()->textWidth(), width);
        form.window.setUpdatesEnabled(true);
        form.field->grab();
        QCOMPARE(int(form.field->document()->textWidth()), form.field->viewport()->width());
    }

    void longTextThatCameUnseenIsLaidOutWhenItIsSeen()
    {
        const QString text = u"photoelectron "_s.repeated(100).trimmed();
        Form form;
        form.field->setCleanedHtml(text);
        QVERIFY(!form.field->document()->isLayoutEnabled());
        QCOMPARE(form.field->cleanedHtml(), text);
        QVERIFY(form.show());
        form.field->grab();
        QVERIFY(form.field->document()->isLayoutEnabled());
        Form other;
        other.field->setCleanedHtml(text);
        other.field->setCleanedHtml(u"short"_s);
        QVERIFY(other.show());
        const QImage shown = other.field->grab().toImage();
        other.field->setCleanedHtml(u"short"_s);
        QCOMPARE(other.field->grab().toImage(), shown);
    }

    void longestWordsAreBrokenAnywhere_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("anywhere");
        QTest::newRow("long word") << u"a"_s.repeated(1900) + u" b"_s << false;
        QTest::newRow("endless word") << u"a"_s.repeated(2100) << true;
        QTest::newRow("hundreds of long words")
            << QString(u"a"_s.repeated(1900) + u' ').repeated(200) << true;
        QTest::newRow("blanks that break no line") << u"a\u00a0"_s.repeated(2000) << true;
    }

    void blanksThatMarkupTakesAwayBreakNoLine()
    {
        Form form;
        form.field->setCleanedHtml("<nobr>"_L1 + u"a "_s.repeated(2000));
        QCOMPARE(form.field->wordWrapMode(), QTextOption::WrapAnywhere);
        form.field->setCleanedHtml(u"<b>a</b> b"_s);
        QCOMPARE(form.field->wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    }

    void formatsThatCannotBeLaidOutAreLeftAway_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("characters");
        QTest::newRow("large letters") << uR"(<span style="font-size:99999px">)"_s << 10;
        QTest::newRow("long text in large letters")
            << uR"(<span style="font-size:90px">)"_s << 100'000;
        QTest::newRow("large letters that a break has")
            << uR"(<br style="font-size:99999px">)"_s << 10;
        QTest::newRow("wide margins") << u"<blockquote>"_s.repeated(900) << 10;
        QTest::newRow("deep lists") << u"<ul>"_s.repeated(900) + u"<li>"_s << 10;
        QTest::newRow("high picture") << uR"(<img height="9999999">)"_s << 10;
        QTest::newRow("narrow table") << uR"(<table width="1%"><tr><td>)"_s << 100'000;
    }

    void formatsThatCannotBeLaidOutAreLeftAway()
    {
        QFETCH(const QString, tag);
        QFETCH(const int, characters);
        Form form;
        form.field->setCleanedHtml(tag + u"ab "_s.repeated(characters / 3) + u"H<sub>2</sub>O"_s);
        QVERIFY(!TextExtent::isBeyondLayout(*form.field->document()));
        QVERIFY(form.field->cleanedHtml().endsWith(u"ab H<sub>2</sub>O"_s));
        QTextDocument asRead;
        asRead.setHtml(tag + u"ab "_s.repeated(characters));
        QVERIFY(TextExtent::isBeyondLayout(asRead));
    }

    void usualFormatsAreShown()
    {
        Form form;
        form.field->setCleanedHtml(uR"(<p style="margin-top:12px; font-size:12pt"><b>bold</b>)"_s);
        const QTextCharFormat format =
            form.field->document()->begin().begin().fragment().charFormat();
        QCOMPARE(format.fontWeight(), int{QFont::Bold});
        QCOMPARE(format.fontPointSize(), 12);
    }

    void longestWordsAreBrokenAnywhere()
    {
        QFETCH(const QString, text);
        QFETCH(const bool, anywhere);
        Form form;
        form.field->setCleanedHtml(text);
        QCOMPARE(form.field->wordWrapMode() == QTextOption::WrapAnywhere, anywhere);
        QCOMPARE(form.field->cleanedHtml(), text);
    }
};

QTEST_MAIN(TestCleanTextEdit)
#include "tst_cleantextedit.moc"
