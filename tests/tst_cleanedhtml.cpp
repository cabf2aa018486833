// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/cleanedhtml.h"
#include "tests/support/traps.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

QTextCharFormat aligned(QTextCharFormat::VerticalAlignment alignment)
{
    QTextCharFormat format;
    format.setVerticalAlignment(alignment);
    return format;
}

/// What a field shows and hands on after it was given @p html.
QString throughTheReader(const QString& html)
{
    QTextDocument document;
    CleanedHtml::intoDocument(document, html);
    return CleanedHtml::fromDocument(document);
}

QString repeated(const char* text, int times)
{
    return QString::fromLatin1(text).repeated(times);
}

} // namespace

/// The reduced markup that fields, models and files exchange.
class TestCleanedHtml : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyDocumentGivesEmptyText()
    {
        const QTextDocument document;
        QCOMPARE(CleanedHtml::fromDocument(document), QString());
    }

    void paragraphsAreJoinedByLineBreaks_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("cleaned");
        QTest::newRow("two empty paragraphs") << u"\n"_s << u"<br>"_s;
        QTest::newRow("three empty paragraphs") << u"\n\n"_s << u"<br><br>"_s;
        QTest::newRow("two lines") << u"a\nb"_s << u"a<br>b"_s;
        QTest::newRow("empty line between") << u"a\n\nb"_s << u"a<br><br>b"_s;
        QTest::newRow("empty line at the end") << u"a\n"_s << u"a<br>"_s;
        QTest::newRow("line separator") << u"a\u2028b"_s << u"a<br>b"_s;
        QTest::newRow("line separators around") << u"\u2028a\u2028\u2028"_s << u"<br>a<br><br>"_s;
        QTest::newRow("both kinds") << u"a\u2028b\nc"_s << u"a<br>b<br>c"_s;
    }

    void paragraphsAreJoinedByLineBreaks()
    {
        QFETCH(const QString, text);
        QTextDocument document;
        document.setPlainText(text);
        QTEST(CleanedHtml::fromDocument(document), "cleaned");
    }

    void textIsNotEscaped()
    {
        QTextDocument document;
        document.setPlainText(u"a < b > c & d &amp; \"e\" <b>f</b>"_s);
        QCOMPARE(CleanedHtml::fromDocument(document), u"a < b > c & d &amp; \"e\" <b>f</b>"_s);
    }

    void onlyRaisedAndLoweredRunsGetTags_data()
    {
        QTest::addColumn<QTextCharFormat>("format");
        QTest::addColumn<QString>("cleaned");
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        QTextCharFormat italic;
        italic.setFontItalic(true);
        QTextCharFormat coloured;
        coloured.setForeground(Qt::red);
        QTextCharFormat large;
        large.setFontPointSize(30);
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        QTextCharFormat link;
        link.setAnchor(true);
        link.setAnchorHref(u"https://example.org"_s);
        QTextCharFormat boldRaised = aligned(QTextCharFormat::AlignSuperScript);
        boldRaised.setFontWeight(QFont::Bold);

        const QString plain = u"a2b"_s;
        QTest::newRow("superscript")
            << aligned(QTextCharFormat::AlignSuperScript) << u"a<sup>2</sup>b"_s;
        QTest::newRow("subscript")
            << aligned(QTextCharFormat::AlignSubScript) << u"a<sub>2</sub>b"_s;
        QTest::newRow("bold superscript") << boldRaised << u"a<sup>2</sup>b"_s;
        QTest::newRow("normal") << aligned(QTextCharFormat::AlignNormal) << plain;
        QTest::newRow("middle") << aligned(QTextCharFormat::AlignMiddle) << plain;
        QTest::newRow("top") << aligned(QTextCharFormat::AlignTop) << plain;
        QTest::newRow("bottom") << aligned(QTextCharFormat::AlignBottom) << plain;
        QTest::newRow("baseline") << aligned(QTextCharFormat::AlignBaseline) << plain;
        QTest::newRow("bold") << bold << plain;
        QTest::newRow("italic") << italic << plain;
        QTest::newRow("colour") << coloured << plain;
        QTest::newRow("size") << large << plain;
        QTest::newRow("underline") << underlined << plain;
        QTest::newRow("link") << link << plain;
    }

    void onlyRaisedAndLoweredRunsGetTags()
    {
        QFETCH(const QTextCharFormat, format);
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText(u"a"_s, QTextCharFormat());
        cursor.insertText(u"2"_s, format);
        cursor.insertText(u"b"_s, QTextCharFormat());
        QTEST(CleanedHtml::fromDocument(document), "cleaned");
    }

    void neighbouringRunsOfDifferentFormatsAreNotMerged()
    {
        QTextCharFormat bold = aligned(QTextCharFormat::AlignSuperScript);
        bold.setFontWeight(QFont::Bold);
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText(u"1"_s, aligned(QTextCharFormat::AlignSuperScript));
        cursor.insertText(u"2"_s, bold);
        QCOMPARE(CleanedHtml::fromDocument(document), u"<sup>1</sup><sup>2</sup>"_s);
    }

    void raisedRunGetsTagsOnEveryLine_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("cleaned");
        QTest::newRow("separator inside") << u"1\u20282"_s << u"<sup>1</sup><br><sup>2</sup>"_s;
        QTest::newRow("empty part between")
            << u"1\u2028\u20282"_s << u"<sup>1</sup><br><sup></sup><br><sup>2</sup>"_s;
        QTest::newRow("separator alone") << u"\u2028"_s << u"<sup></sup><br><sup></sup>"_s;
        QTest::newRow("paragraphs") << u"1\n2"_s << u"<sup>1</sup><br><sup>2</sup>"_s;
    }

    void raisedRunGetsTagsOnEveryLine()
    {
        QFETCH(const QString, text);
        QTextDocument document;
        QTextCursor(&document).insertText(text, aligned(QTextCharFormat::AlignSuperScript));
        QTEST(CleanedHtml::fromDocument(document), "cleaned");
    }

    void filterRemovesTagsOtherThanSubSupAndBr_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("filtered");
        const auto stays = [](const char* name, const QString& text) {
            QTest::newRow(name) << text << text;
        };
        stays("no tags", u"water"_s);
        stays("sub", u"H<sub>2</sub>O"_s);
        stays("sup", u"H<sup>+</sup>"_s);
        stays("br", u"a<br>b"_s);
        stays("sub with attribute", u"H<sub class=\"x\">2</sub>"_s);
        stays("self-closing br", u"a<br/>b<br />c"_s);
        stays("closing br", u"a</br>b"_s);
        stays("sub with a hyphen", u"<sub-x>2</sub-x>"_s);
        stays("entities", u"R&amp;D &lt;b&gt; &nbsp;"_s);
        stays("greater-than alone", u"1 > 2"_s);
        stays("less-than that is never closed", u"a < b"_s);

        QTest::newRow("b") << u"a<b>b</b>c"_s << u"abc"_s;
        QTest::newRow("span with attributes")
            << u"a<span style=\"color:red\" id='x'>b</span>c"_s << u"abc"_s;
        QTest::newRow("upper-case br") << u"a<BR>b"_s << u"ab"_s;
        QTest::newRow("upper-case sub") << u"a<SUB>2</Sub>b"_s << u"a2b"_s;
        QTest::newRow("subscript") << u"a<subscript>2</subscript>b"_s << u"a2b"_s;
        QTest::newRow("broken") << u"a<broken>b"_s << u"ab"_s;
        QTest::newRow("sub1") << u"a<sub1>b"_s << u"ab"_s;
        QTest::newRow("blank before the name") << u"a< sub>b"_s << u"ab"_s;
        QTest::newRow("blank after the stroke") << u"a</ sub>b"_s << u"ab"_s;
        QTest::newRow("foreign around kept") << u"<i><sub>2</sub></i>"_s << u"<sub>2</sub>"_s;
        QTest::newRow("comment") << u"a<!-- x -->b"_s << u"ab"_s;
        QTest::newRow("empty tag") << u"a<>b"_s << u"ab"_s;
        QTest::newRow("across lines") << u"a<b\nc>d"_s << u"ad"_s;
        QTest::newRow("less-than before a greater-than") << u"1 < 2 and 3 > 2"_s << u"1  2"_s;
        QTest::newRow("less-than before a kept tag") << u"a < b<sub>2</sub>"_s << u"a 2</sub>"_s;
        QTest::newRow("only one pass") << u"<<b>b>"_s << u"b>"_s;
    }

    void filterRemovesTagsOtherThanSubSupAndBr()
    {
        QFETCH(const QString, text);
        QTEST(CleanedHtml::withoutForeignTags(text), "filtered");
    }

    void filterAgreesWithTheExpressionThatDefinesIt()
    {
        static const QRegularExpression foreignTag(u"<(?!/?(sub|sup|br)\\b)[^>]*>"_s);
        QStringList pieces =
            u"< < > > / sub sup br BR b r _ 1 - = é ß Ж 水 \u0301 \u00a0 \u2028 😀"_s.split(u' ');
        pieces << u" "_s << u"\n"_s << u"\r\n"_s << QString(QChar(u'\0')) << u"</br>"_s
               << u"<sub"_s;
        const QStringList unpaired{QString(QChar(0xd83d)), QString(QChar(0xde00))};
        QRandomGenerator random(20261122);
        for (int i = 0; i < 20'000; ++i) {
            QString text;
            const int length = random.bounded(24);
            for (int j = 0; j < length; ++j)
                text += pieces.at(random.bounded(static_cast<int>(pieces.size())));
            if (i % 10 == 0)
                text.insert(random.bounded(length + 1), unpaired.at(random.bounded(2)));
            QCOMPARE(CleanedHtml::withoutForeignTags(text), QString(text).remove(foreignTag));
        }
    }

    void filterIsLinearInTheLengthOfItsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("filtered");
        constexpr int times = 1'000'000;
        const auto stays = [](const char* name, const QString& text) {
            QTest::newRow(name) << text << text;
        };
        stays("less-thans that nothing closes", repeated("<", times));
        stays("kept tags that nothing closes", repeated("<sub", times));
        stays("kept tags closed at the very end", repeated("<sub ", times) + u'>');
        stays("greater-thans", repeated(">", times));
        QTest::newRow("closed at the very end")
            << QString(repeated("<", times) + u'>') << QString();
        QTest::newRow("closed each") << repeated("<b>a", times) << repeated("a", times);
    }

    void filterIsLinearInTheLengthOfItsText()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, filtered);
        const Deadline deadline;
        QVERIFY(CleanedHtml::withoutForeignTags(text) == filtered);
    }

    void readerGetsTextWithoutBareLessThanUntouched_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text :
             {"", "water", "H<sub>2</sub>O", "a<br>b<br/>c<BR>d", "R&D &lt; &amp; &nbsp;", "1 > 2",
              "<span style=\" vertical-align:sub; color:#ff0000;\">2</span>", "<p>a</p><p>b</p>",
              "<table><tr><td>1</td><td>2</td></tr></table>"})
            QTest::newRow(*text == '\0' ? "empty" : text) << QString::fromLatin1(text);
        QTest::newRow("no-break space") << u"1\u00a0eV"_s;
        QTest::newRow("outside Latin 1") << u"\u03b1-pinene \u2192 \U0001F9EA"_s;
    }

    void readerGetsTextWithoutBareLessThanUntouched()
    {
        QFETCH(const QString, text);
        QCOMPARE(CleanedHtml::forHtmlReader(text), text);
    }

    void readerGetsBareLessThanAsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("prepared");
        const auto row = [](const char* text, const char* prepared) {
            QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(prepared);
        };
        row("<", "&lt;");
        row("a <", "a &lt;");
        row("resolution < 10 meV", "resolution &lt; 10 meV");
        row("resolution <10 meV", "resolution &lt;10 meV");
        row("a <= b", "a &lt;= b");
        row("<<", "&lt;&lt;");
        row("<<br>", "&lt;<br>");
        row("1 < 2 > 0", "1 &lt; 2 > 0");
        row("< <sub>2</sub>", "&lt; <sub>2</sub>");
        row("CO<sub>2</sub> < 5", "CO<sub>2</sub> &lt; 5");
        row("<sup>3</sup>He < <sup>4</sup>He", "<sup>3</sup>He &lt; <sup>4</sup>He");
        row("<&amp;>", "&lt;&amp;>");
        row("a<b", "a&lt;b");
        row("x<sub>2</sub> a</b", "x<sub>2</sub> a&lt;/b");
        row("H<sub>2", "H<sub>2");
        row("H<sub", "H&lt;sub");
        row("<!-- never closed", "&lt;!-- never closed");
        row("<?", "&lt;?");
        row("</", "&lt;/");
        row("> <a", "> &lt;a");
        QTest::newRow("letter outside ASCII") << u"<\u03b1>"_s << u"&lt;\u03b1>"_s;
        QTest::newRow("no-break space") << u"<\u00a05>"_s << u"&lt;\u00a05>"_s;
    }

    void readerGetsBareLessThanAsText()
    {
        QFETCH(const QString, text);
        QTEST(CleanedHtml::forHtmlReader(text), "prepared");
    }

    void textComesBackCharacterForCharacter_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text : {"",
                                 "water",
                                 "H<sub>2</sub>O",
                                 "C<sub>60</sub><sup>+</sup>",
                                 "a<br>b<br>c",
                                 "<br>",
                                 "<sup>1</sup><br><sup>2</sup>",
                                 "R&D",
                                 "1 > 2",
                                 "resolution < 10 meV",
                                 "resolution <10 meV",
                                 "a<b",
                                 "a <= b",
                                 "<",
                                 "<<",
                                 "1 < 2 > 0",
                                 "CO<sub>2</sub> < 5 meV",
                                 "< 5 <sup>a</sup> < 7 <br>< 9",
                                 "a &",
                                 "5 \"inches\"",
                                 "10.1039/C4CP04122B?x=1&y=2",
                                 "InChI=1S/H2O/h1H2",
                                 "E<E<sub>0</sub>",
                                 "a<b<c",
                                 "a<b and c<sup>2</sup>",
                                 "<-- not a comment"})
            QTest::newRow(*text == '\0' ? "empty" : text) << QString::fromLatin1(text);
        QTest::newRow("no-break space") << u"1\u00a0eV \u00b1\u00a00.1"_s;
        QTest::newRow("outside Latin 1") << u"\u03b1-pinene \u2192 \U0001F9EA"_s;
    }

    void textComesBackCharacterForCharacter()
    {
        QFETCH(const QString, text);
        QCOMPARE(throughTheReader(text), text);
    }

    void foreignMarkupLeavesItsText_data()
    {
        QTest::addColumn<QString>("html");
        QTest::addColumn<QString>("cleaned");
        const auto row = [](const char* html, const char* cleaned) {
            QTest::newRow(html) << QString::fromLatin1(html) << QString::fromLatin1(cleaned);
        };
        row("<p>a<p>b", "a<br>b");
        row("<p>a</p><p>b</p>", "a<br>b");
        row("<ul><li>a<li>b</ul>", "a<br>b");
        row("<ul><li>a</li><li>b</li></ul>", "a<br>b");
        row("<div>a</div><div>b</div>", "a<br>b");
        row("a <b>bold</b> <i>word</i>", "a bold word");
        row("<span style=\"vertical-align:sub;\">2</span>", "<sub>2</sub>");
        row("a<!-- note -->b", "ab");
        row("a<!-- <b> -->b", "ab");
        row("<?xml version='1.0'?>a", "a");
        row("<!DOCTYPE HTML><html><head><title>t</title></head><body>a</body></html>", "a");
        row("R&amp;D &lt;x&gt;", "R&D <x>");
        row("a\nb   c", "a b c");
        row("a<BR>b<br/>c", "a<br>b<br>c");
        row("<SUB>2</SUB>", "<sub>2</sub>");
        row("a<style>b { color: red }</style>c", "ac");
        row("a<STYLE type=\"text/css\">b < c</Style >d", "ad");
        row("a<script>if (b<c) d(\"<b>\");</script>e", "ae");
        row("a<title>b</title><script src='x'></script>c", "ac");
        row("a<style>b", "ab");
        row("a</style>b<title/>c", "abc");
        row("a<styles>b</styles>c", "abc");
    }

    void foreignMarkupLeavesItsText()
    {
        QFETCH(const QString, html);
        QTEST(throughTheReader(html), "cleaned");
    }

    void shortStyleSheetKeepsBlanks()
    {
        QCOMPARE(
            throughTheReader(u"<style type=\"text/css\">p, li { white-space: pre-wrap; }</style>"
                             "<p>a  b   c</p>"_s),
            u"a  b   c"_s);
    }

    void marksOnALetterComeBack_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const QString nothing;
        QTest::newRow("alone") << nothing << nothing;
        QTest::newRow("in a line") << u"a b e"_s << u" c d"_s;
        QTest::newRow("raised") << u"x<sup>e"_s << u"f</sup>y"_s;
        QTest::newRow("at the end of raised text") << u"x<sup>e"_s << u"</sup>y"_s;
        QTest::newRow("lowered behind") << u"e"_s << u"<sub>2</sub>"_s;
        QTest::newRow("before a line break") << u"e"_s << u"<br>f"_s;
        QTest::newRow("before a less-than") << u"e"_s << u"<5"_s;
    }

    void marksOnALetterComeBack()
    {
        QFETCH(const QString, before);
        QFETCH(const QString, after);
        for (const int count : {1, 30, 31, 330, 331, 1000, 5000}) {
            const QString text = before + u"\u0301\u0327"_s.repeated(count) + after;
            QCOMPARE(throughTheReader(text), text);
            const QString outsideThePlane = before + u"\U0001d165"_s.repeated(count) + after;
            QCOMPARE(throughTheReader(outsideThePlane), outsideThePlane);
        }
    }

    void marksWrittenAsNumbersAreMarks()
    {
        const QString marks = u"\u0301"_s.repeated(800);
        QCOMPARE(throughTheReader("e"_L1 + u"&#769;&#x301;"_s.repeated(400)), "e"_L1 + marks);
        QTextDocument document;
        document.setHtml(CleanedHtml::forHtmlReader("e"_L1 + u"&#769;"_s.repeated(300'000)));
        QVERIFY(document.toPlainText().size() < 100);
    }

    void moreMarksThanALetterCarriesAreNotLaidOut()
    {
        QTextDocument document;
        document.setHtml(CleanedHtml::forHtmlReader("e"_L1 + u"\u0301"_s.repeated(300'000) + u'f'));
        QVERIFY(document.toPlainText().size() < 100);
    }

    void foreignPictureStandsForNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("any") << u"picture.png"_s;
        QTest::newRow("rest of a text") << u"rest:PHNjcmlwdD4="_s;
        QTest::newRow("rest of a text, with a number") << u"rest:1z141z3:YQBiAA=="_s;
        QTest::newRow("marks") << u"marks:abc"_s;
        QTest::newRow("marks, with a number") << u"marks:1z141z3:abc"_s;
    }
    void foreignPictureStandsForNothing()
    {
        QFETCH(const QString, name);
        QCOMPARE(throughTheReader(u"x<img src=\"%1\">y"_s.arg(name)),
                 throughTheReader(u"x<img>y"_s));
    }

    void restOfAnEndlessTextComesBackButIsNotLaidOut_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("lines") << repeated("x<br>", 30'000) + u"H<sub>2</sub>O";
        QTest::newRow("empty lines") << repeated("<br>", 30'000);
        QTest::newRow("separators of lines") << u"x\u200e"_s.repeated(30'000);
        QTest::newRow("raised and lowered") << repeated("C<sub>2</sub>H<sup>+</sup>", 20'000);
        QTest::newRow("directions") << u"\u202b\u05d0\u202aa"_s.repeated(20'000);
        QTest::newRow("writings") << u"a\u05d01 "_s.repeated(20'000);
        QTest::newRow("symbols") << u"a\u2192 "_s.repeated(20'000);
        QTest::newRow("anything behind") << repeated("x<br>", 10'001) +
                                                u"\"&<>'\u00e9\U0001F9EA \u2028%41"_s +
                                                QString(QChar(0xd800));
    }

    void restOfAnEndlessTextComesBackButIsNotLaidOut()
    {
        QFETCH(const QString, text);
        QTextDocument document;
        CleanedHtml::intoDocument(document, text);
        QVERIFY(document.toPlainText().size() < 45'000);
        QVERIFY(!document.isUndoAvailable());
        QVERIFY(document.isUndoRedoEnabled());
        QVERIFY(CleanedHtml::fromDocument(document) == text);
        QVERIFY(throughTheReader(throughTheReader(text)) == text);
    }

    void shownOfAPastedTextEndsBetweenCharacters_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qsizetype>("length");
        const qsizetype most = CleanedHtml::mostCharacters;
        const int lines = CleanedHtml::mostPieces;
        QTest::newRow("empty") << QString() << qsizetype{0};
        QTest::newRow("most characters") << QString(most, u'a') << most;
        QTest::newRow("more characters") << QString(most + 1, u'a') << most;
        QTest::newRow("half a character at the end")
            << QString(most - 1, u'a') + u"\U0001F9EA" << most - 1;
        QTest::newRow("half an end of line") << QString(most - 1, u'a') + u"\r\n" << most - 1;
        QTest::newRow("most lines") << QString(lines, u'\n') << qsizetype{lines};
        QTest::newRow("more lines") << QString(lines + 1, u'\n') << qsizetype{lines};
        QTest::newRow("lines of another system")
            << u"\r\n"_s.repeated(lines + 1) << qsizetype{2 * lines};
        QTest::newRow("lines of an old system") << QString(lines + 1, u'\r') << qsizetype{lines};
        for (const QChar::SpecialCharacter end :
             {QChar::ParagraphSeparator, QChar::LineSeparator}) {
            QTest::addRow("separators %x", unsigned(end))
                << QString(lines + 1, QChar(end)) << qsizetype{lines};
        }
    }

    void shownOfAPastedTextEndsBetweenCharacters()
    {
        QFETCH(const QString, text);
        QTEST(CleanedHtml::lengthOfShown(text), "length");
    }

    void endsOfLinesBecomeBreaks()
    {
        QCOMPARE(CleanedHtml::fromPlainText(u""), QString());
        QCOMPARE(CleanedHtml::fromPlainText(u"a<b"), u"a<b"_s);
        QCOMPARE(CleanedHtml::fromPlainText(u"a\nb\rc\r\nd\u2028e\u2029f"),
                 u"a<br>b<br>c<br>d<br>e<br>f"_s);
        QCOMPARE(CleanedHtml::fromPlainText(u"\r\r\n\n"), u"<br><br><br>"_s);
    }

    // The toolkit reads the name of a picture as an address at each repaint.
    void restOfAnEndlessTextIsNoAddress()
    {
        QTextDocument document;
        CleanedHtml::intoDocument(document, repeated("x<br>", 30'000));
        const QList<QTextFormat> formats = document.allFormats();
        for (const QTextFormat& used : formats)
            QVERIFY(used.stringProperty(QTextFormat::ImageName).size() < 50);
    }

    void textOfUsualLengthIsLaidOutWhole_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("lines") << repeated("x<br>", 9'900);
        QTest::newRow("formulae") << repeated("C<sub>2</sub>H<sup>+</sup> ", 4'900);
        QTest::newRow("a megabyte of words") << repeated("photoelectron ", 75'000);
        QTest::newRow("a megabyte of Hebrew") << u"\u05d0\u05d1 "_s.repeated(300'000);
        QTest::newRow("quotation marks") << u"\u201ca\u201d \u2013 "_s.repeated(100'000);
    }

    void ofAVeryLongTextThreeMillionCharactersAreLaidOut()
    {
        const QString words = u"photoelectron "_s.repeated(300'000);
        const QString prepared = CleanedHtml::forHtmlReader(words);
        const qsizetype rest = prepared.indexOf(u"<img"_s);
        QCOMPARE(rest, 3'000'000);
        QVERIFY(words.startsWith(prepared.first(rest)));
        const QString most = words.first(3'000'000);
        QCOMPARE(CleanedHtml::forHtmlReader(most), most);
    }

    void textOfUsualLengthIsLaidOutWhole()
    {
        QFETCH(const QString, text);
        QCOMPARE(CleanedHtml::forHtmlReader(text), text);
    }

    void readerIsSparedWhatWouldBeTooMuchWork_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("cleaned");
        const QString lines = repeated("x<br>", 30'000) + u"H<sub>2</sub>O";
        const QString words = repeated("photoelectron ", 10'000) + u'x';
        QTest::newRow("lines in bold") << repeated("<b>", 1000) + lines << lines;
        QTest::newRow("lines in unknown elements") << repeated("<x>", 1000) + lines << lines;
        QTest::newRow("lines in closed elements") << repeated("<i></i>", 1000) + lines << lines;
        QTest::newRow("style rules")
            << "<style>"_L1 + repeated("a{color:red}", 100'000) + "</style>"_L1 + lines << lines;
        QTest::newRow("many short style sheets")
            << repeated("<style>a{color:red}</style>", 10'000) + lines << lines;
        QTest::newRow("rules that every line is matched with")
            << "<style>"_L1 + repeated("*,", 120) + "*{color:red}</style>"_L1 + lines << lines;
        QTest::newRow("words in nested tables") << repeated("<table><tr><td>", 8) + words << words;
        QTest::newRow("cell of many columns") << u"<table><tr><td colspan=1000>"_s + u'x' << u"x"_s;
        QTest::newRow("cell of many columns, hidden")
            << u"<table><tr><td colspan=&#49;&#48;&#48;&#48;>"_s + u'x' << u"x"_s;
        QTest::newRow("raised runs in one word")
            << repeated("C<sub>2</sub>", 20'000) << repeated("C<sub>2</sub>", 20'000);
    }

    void readerIsSparedWhatWouldBeTooMuchWork()
    {
        QFETCH(const QString, text);
        const Deadline deadline;
        QTEST(throughTheReader(text), "cleaned");
    }

    void manyParagraphsListItemsAndCellsKeepTheirPlaces()
    {
        QCOMPARE(throughTheReader(repeated("<p>a", 300)), repeated("a<br>", 299) + u'a');
        const QString items = u"<ul>"_s + repeated("<li>a", 200) + u"</ul>";
        QCOMPARE(throughTheReader(items), repeated("a<br>", 199) + u'a');
        QCOMPARE(throughTheReader(u"x<table><tr><td>a<td>b<tr><td>c</table>y"_s),
                 throughTheReader(u"x<table><tr><td>a</td><td>b</td></tr>"
                                  "<tr><td>c</td></tr></table>y"_s));
        QVERIFY(
            throughTheReader(u"<table><tr><td>a<td>b<tr><td>c</table>"_s).contains(u"a<br>b<br>c"));
    }

    void longRunsOfMarkupStayWhole()
    {
        const QString formula = repeated("C<sub>2</sub>H<sup>+</sup><br>", 2000);
        QCOMPARE(CleanedHtml::forHtmlReader(formula), formula);
    }

    void hostileNestingIsReadInFiniteTime_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("tables") << repeated("<table><tr><td>", 40);
        QTest::newRow("upper-case tables") << repeated("<TABLE><Tr><tD>", 40);
        QTest::newRow("closed tables")
            << repeated("<table><tr><td>", 40) + repeated("</td></tr></table>", 40);
        QTest::newRow("tables without rows") << repeated("<table>", 40);
        QTest::newRow("tables in lists") << repeated("<table><tr><td><ul><li>", 40);
        QTest::newRow("tables with attributes")
            << repeated("<table border=1 width='10%'><tr><td colspan=\"2\">", 40);
        QTest::newRow("closing tag of another name that begins alike")
            << repeated("<table><tr><td></table-x>", 40);
        QTest::newRow("closing tag in a comment")
            << repeated("<table><tr><td><!-- > </table> -->", 40);
        QTest::newRow("closing tag in an attribute")
            << repeated("<table><tr><td><b x=\"</table>\">", 40);
        QTest::newRow("closing tag in a single-quoted attribute")
            << repeated("<table><tr><td><b x='</table>'>", 40);
        QTest::newRow("name with an entity") << repeated("<t&#97;ble><tr><td>", 40);
        QTest::newRow("name that is an entity at its end") << repeated("<tabl&#101;><tr><td>", 40);
        QTest::newRow("closing an element that a cell has ended")
            << u"<table><tr><td>"_s + repeated("<b><td><table><tr><td></b>", 40);
        QTest::newRow("closing an element around the table")
            << repeated("<p><table><tr><td></p>", 40);
        QTest::newRow("self-closing") << repeated("<table/><tr/><td/>", 40);
        QTest::newRow("divisions") << repeated("<div>", 100000);
        QTest::newRow("lists") << repeated("<ul><li>", 50000);
        QTest::newRow("quotations") << repeated("<blockquote>", 50000);
        QTest::newRow("raised") << repeated("<sup>", 100000);
        QTest::newRow("divisions not really closed") << repeated("<div></div-x>", 50000);
        QTest::newRow("cells without a table") << repeated("<td>", 40);
        QTest::newRow("self-closing cells without a table") << repeated("<td/>", 40);
        QTest::newRow("cells behind their row") << u"<table>"_s + repeated("<tr></tr><td>", 40);
        QTest::newRow("cells whose row was closed") << u"<table><tr>"_s + repeated("</tr><td>", 40);
        QTest::newRow("rows whose table was closed") << repeated("<tr></table><td></tr>", 40);
        QTest::newRow("name before an equals sign") << repeated("<table=x><tr=x><td=x>", 40);
        QTest::newRow("name before another tag") << repeated("<table<x><tr<x><td<x>", 40);
        QTest::newRow("raised, not really closed") << repeated("<sup></sup/x>", 50000);
        QTest::newRow("raised, closed in a comment") << repeated("<sup><!-- > </sup> -->", 50000);
        QTest::newRow("raised, closed in an attribute") << repeated("<sup x=\"></sup>\">", 50000);
        QTest::newRow("raised often, closed in comments")
            << QString(repeated("<sup>", 64) + u"<!-- >" + repeated("</sup>", 64) + u" -->")
                   .repeated(1000);
        QTest::newRow("raised often, closed in attributes")
            << QString(repeated("<sup>", 64) + u"<b x=\">" + repeated("</sup>", 64) + u"\">")
                   .repeated(1000);
        QTest::newRow("cells in definitions")
            << u"<dl><table><tr>"_s + repeated("<dd></dd><td></tr>", 40);
        QTest::newRow("processing instructions") << repeated("<?a>", 50000);
        QTest::newRow("paragraphs that end an element")
            << repeated("<b><p><div><div><div><div><div><div><div><div></b>", 8000);
        QTest::newRow("less-thans") << repeated("<", 20000);
        QTest::newRow("closing tags") << repeated("</div>", 100000);
        QTest::newRow("tags never closed") << repeated("<b ", 100000);
        QTest::newRow("comments never closed") << repeated("<!-- ", 100000) + u'>';
    }

    void hostileNestingIsReadInFiniteTime()
    {
        QFETCH(const QString, text);
        const Deadline deadline;
        const QString content = text + u"end";
        QTextDocument document;
        document.setHtml(CleanedHtml::forHtmlReader(content));
        document.adjustSize();
        QVERIFY(document.size().isValid());
    }

    void deepNestingKeepsTheText()
    {
        const Deadline deadline;
        const QString tables =
            repeated("<table><tr><td>a", 30) + repeated("</td></tr></table>", 30);
        QCOMPARE(throughTheReader(tables).count(u'a'), 30);
        const QString divisions = repeated("<div>a", 500) + repeated("</div>", 500);
        QCOMPARE(throughTheReader(divisions).count(u'a'), 500);
    }

    void raisedTextBehindDeepNestingIsStillRaised()
    {
        const QString text = repeated("<div>", 200) + repeated("</div>", 200) + u"H<sub>2</sub>O";
        QVERIFY(throughTheReader(text).endsWith(u"H<sub>2</sub>O"));
    }
};

QTEST_MAIN(TestCleanedHtml)
#include "tst_cleanedhtml.moc"
