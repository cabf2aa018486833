// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/cleantextedit.h"

#include "support/cleanedhtml.h"
#include "support/htmlreadertext.h"
#include "support/standinpicture.h"
#include "support/textextent.h"
#include "support/waitcursor.h"

#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextDocumentFragment>
#include <QUrl>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace {

/// Texts that are no longer than this are laid out at once.
constexpr int fewCharacters = 100;

/// Whether a word of the text, markup included, is longer than any word is, or very many are nearly
/// as long. Tags other than line breaks do not end a word; blanks in them do not, either.
bool hasEndlessWord(QStringView text)
{
    constexpr qint64 longestWord = 2000;
    constexpr qint64 mostWork = 100 * longestWord * longestWord;
    const QLatin1StringView lineBreak("<br");
    qint64 length = 0;
    qint64 work = 0; // that of the layout for the words until now
    bool inTag = false;
    for (qsizetype i = 0; i < text.size() && length <= longestWord && work <= mostWork; ++i) {
        const QChar c = text.at(i);
        const bool tagBegins = c == u'<' && i + 1 < text.size() &&
                               (text.at(i + 1) == u'/' || text.at(i + 1).isLetter());
        const bool isLineBreak = tagBegins && text.sliced(i).startsWith(lineBreak);
        inTag = tagBegins || (inTag && c != u'>' && c != u'<');
        const bool wordEnds = isLineBreak || (!inTag && c.isSpace() && c != QChar::Nbsp);
        work += wordEnds ? length * length : 0;
        length = wordEnds ? 0 : length + 1;
    }
    return length > longestWord || work > mostWork;
}

/// What a field shows of the rest of a text that is too much for it.
QImage dots(const QFont& font, const QColor& colour)
{
    const QString text = u" [...]"_s;
    const QFontMetrics metrics(font);
    QImage image(metrics.horizontalAdvance(text), metrics.height(),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(image.rect(), text);
    return image;
}

} // namespace

CleanTextEdit::CleanTextEdit(QWidget* parent)
    : QTextEdit(parent)
{
    setTabChangesFocus(true);
    setAcceptRichText(false);
    connect(this, &QTextEdit::textChanged, this, [this] { onTextChanged(); });
}

QString CleanTextEdit::cleanedHtml() const
{
    return CleanedHtml::fromDocument(*document());
}

void CleanTextEdit::setCleanedHtml(const QString& html)
{
    // An empty document that never had a text is what it is to be; a new one takes kilobytes.
    if (html.isEmpty() && document()->revision() == 0) {
        Q_EMIT textChanged();
        return;
    }
    prepareWrappingFor(html);
    // Nobody goes along one line for hundreds of formulae, and a file can have thousands of lines.
    constexpr int mostInLine = 2000;
    const bool isLine = lineWrapMode() == QTextEdit::NoWrap;
    const int pieces = isLine ? mostInLine : CleanedHtml::mostPieces;
    const HtmlReaderText::Prepared text = HtmlReaderText::prepared(html, pieces);
    const bool isSeen = isVisible() && !waitsToBeSeen;
    if (text.isFormatted || !text.rest.isEmpty() || (!isVisible() && html.size() > fewCharacters)) {
        document()->setLayoutEnabled(false);
        waitsToBeSeen = true;
    }
    setPrepared(text);
    if (text.isFormatted)
        judgeFormats(html, pieces);
    // Not before: the old text, with its endless word, would be laid out once more.
    if (wordWrapMode() == QTextOption::WrapAnywhere &&
        !hasEndlessWord(text.isFormatted ? document()->toRawText() : html))
        setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    if (isSeen)
        layOutNow();
}

void CleanTextEdit::contextMenuEvent(QContextMenuEvent* event)
{
    // As a child of the field the menu would get its background from the style sheets around the
    // field, which are light, and its text from the desktop, which may be dark.
    QWidget* outermost = this;
    while (outermost->parentWidget() != nullptr)
        outermost = outermost->parentWidget();

    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    QMenu* menu = createStandardContextMenu(event->pos() + scrolled);
    if (menu == nullptr)
        return;
    if (outermost != this)
        menu->setParent(outermost, menu->windowFlags());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

QSize CleanTextEdit::minimumSizeHint() const
{
    constexpr int fewestLines = 3;
    constexpr int fewestCharacters = 10;
    const int frameAndMargins = 2 * frameWidth() + qCeil(2 * document()->documentMargin());
    return QSize(fewestCharacters * fontMetrics().averageCharWidth(),
                 fewestLines * fontMetrics().lineSpacing()) +
           QSize(frameAndMargins, frameAndMargins);
}

QSize CleanTextEdit::sizeHint() const
{
    return {QTextEdit::sizeHint().width(), minimumSizeHint().height()};
}

QMimeData* CleanTextEdit::createMimeDataFromSelection() const
{
    // Without the toolkit's OpenDocument form, which would open the pictures that the text names.
    const QTextDocumentFragment selection = textCursor().selection();
    auto* copied = new QMimeData;
    copied->setText(CleanedHtml::plainText(textCursor()));
    // Markup would have pictures instead of what they stand for, and others prefer markup.
    if (copied->text() == selection.toPlainText())
        copied->setHtml(selection.toHtml());
    return copied;
}

void CleanTextEdit::insertFromMimeData(const QMimeData* source)
{
    const WaitCursor waiting;
    const QString text = source->text();
    if (CleanedHtml::lengthOfShown(text) < text.size()) {
        insertPlainly(text);
        return;
    }
    prepareWrappingFor(text);
    QTextEdit::insertFromMimeData(source);
}

void CleanTextEdit::insertPlainly(const QString& text)
{
    const qsizetype shown = CleanedHtml::lengthOfShown(text);
    const QString beginning = text.first(shown);
    prepareWrappingFor(beginning);
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.insertText(beginning);
    if (shown < text.size()) {
        const QString rest = CleanedHtml::fromPlainText(QStringView(text).sliced(shown));
        cursor.insertImage(StandInPicture::formatOfRest(rest));
    }
    cursor.endEditBlock();
    ensureCursorVisible();
}

void CleanTextEdit::paintEvent(QPaintEvent* event)
{
    layOutNow();
    QTextEdit::paintEvent(event);
}

void CleanTextEdit::focusInEvent(QFocusEvent* event)
{
    layOutNow();
    QTextEdit::focusInEvent(event);
}

void CleanTextEdit::resizeEvent(QResizeEvent* event)
{
    // Windows that come many at a time get several sizes, and most of them are not seen for long.
    if (!updatesEnabled() && document()->characterCount() > fewCharacters)
        waitsToBeSeen = true;
    if (!waitsToBeSeen)
        QTextEdit::resizeEvent(event);
}

void CleanTextEdit::layOutNow()
{
    if (!waitsToBeSeen)
        return;
    waitsToBeSeen = false;
    document()->setLayoutEnabled(true);
    QResizeEvent resized(viewport()->size(), QSize());
    QTextEdit::resizeEvent(&resized);
}

void CleanTextEdit::setPrepared(const HtmlReaderText::Prepared& text)
{
    if (text.rest.isEmpty()) {
        setHtml(text.html);
        return;
    }
    {
        const QSignalBlocker blocker(this); // until all of it is there
        setHtml(text.html);
        StandInPicture::giveRest(*document(), text.rest);
    }
    Q_EMIT textChanged();
}

void CleanTextEdit::judgeFormats(const QString& html, int pieces)
{
    if (TextExtent::isBeyondLayout(*document()))
        setPrepared(HtmlReaderText::unformatted(html, pieces));
    // Markup can take from a text the blanks at which it would be broken.
    prepareWrappingFor(document()->toRawText());
}

void CleanTextEdit::prepareWrappingFor(const QString& text)
{
    // To find a word boundary the layout takes time quadratic in the length of a word.
    if (wordWrapMode() != QTextOption::WrapAnywhere && hasEndlessWord(text))
        setWordWrapMode(QTextOption::WrapAnywhere);
}

QVariant CleanTextEdit::loadResource(int type, const QUrl& name)
{
    // An answer that is not empty: without one the document would try to open the file itself.
    if (type == QTextDocument::ImageResource) {
        if (StandInPicture::isOfRest(name.toString()))
            return dots(font(), palette().color(QPalette::Text));
        QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
        nothing.fill(Qt::transparent);
        return nothing;
    }
    return QByteArray("");
}

void CleanTextEdit::onTextChanged()
{
    Q_EMIT cleanedHtmlChanged();
}
