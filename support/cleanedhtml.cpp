// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/cleanedhtml.h"

#include "support/htmlreadertext.h"
#include "support/standinpicture.h"
#include "support/writtencharacter.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView lineBreak("<br>");
constexpr std::array keptNames{"sub"_L1, "sup"_L1, "br"_L1};

QString raisedOrLowered(const QString& text, QTextCharFormat::VerticalAlignment alignment)
{
    switch (alignment) {
    case QTextCharFormat::AlignSuperScript:
        return "<sup>"_L1 + text + "</sup>"_L1;
    case QTextCharFormat::AlignSubScript:
        return "<sub>"_L1 + text + "</sub>"_L1;
    default:
        return text;
    }
}

QString fromRun(const QString& text, QTextCharFormat::VerticalAlignment alignment)
{
    QStringList lines = QString(text).replace(QChar::LineSeparator, u'\n').split(u'\n');
    for (QString& line : lines)
        line = raisedOrLowered(line, alignment);
    return lines.join(lineBreak);
}

/// The runs of one format in a paragraph. Marks for which a picture stands belong to the run that
/// they interrupt; so does the rest of a text, but with the markup of its own.
class Runs
{
public:
    void take(const QTextFragment& fragment)
    {
        const QTextCharFormat fragmentFormat = fragment.charFormat();
        if (StandInPicture::isOfRest(fragmentFormat)) {
            finish();
            finished += StandInPicture::textOf(fragmentFormat).repeated(fragment.length());
            return;
        }
        const QString marks = StandInPicture::textOf(fragmentFormat);
        const bool isMarks = !marks.isEmpty();
        const bool goesOn = isMarks || (isInterrupted && fragmentFormat == format);
        if (!goesOn || !hasRun)
            begin(fragmentFormat);
        text += isMarks ? marks.repeated(fragment.length()) : fragment.text();
        isInterrupted = isMarks;
    }

    /// Takes no further fragment afterwards.
    QString html()
    {
        finish();
        return finished;
    }

private:
    void begin(const QTextCharFormat& newFormat)
    {
        finish();
        format = newFormat;
        hasRun = true;
    }

    void finish()
    {
        if (hasRun)
            finished += fromRun(text, format.verticalAlignment());
        text.clear();
        hasRun = false;
    }

    QString finished;
    QString text;
    QTextCharFormat format;
    bool hasRun = false;
    bool isInterrupted = false; ///< Whether the run ends in a picture that stands for marks.
};

/// What the expression "\w" means when it knows nothing of Unicode.
bool isWordCharacter(QChar c)
{
    return isAsciiLetterOrDigit(c) || c == u'_';
}

/// Whether what follows a "<" makes it one of the three markups, opening or closing.
bool isKeptTag(QStringView tag)
{
    if (tag.startsWith(u'/'))
        tag = tag.sliced(1);
    return std::any_of(keptNames.begin(), keptNames.end(), [tag](QLatin1StringView name) {
        return tag.startsWith(name) &&
               (tag.size() == name.size() || !isWordCharacter(tag.at(name.size())));
    });
}

bool endsLine(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::ParagraphSeparator || c == QChar::LineSeparator;
}

bool isPair(QChar first, QChar second)
{
    return (first == u'\r' && second == u'\n') ||
           (first.isHighSurrogate() && second.isLowSurrogate());
}

QString withLineFeeds(QStringView html)
{
    QString text;
    text.reserve(html.size());
    qsizetype begin = 0;
    for (qsizetype end = html.indexOf(lineBreak); end >= 0; end = html.indexOf(lineBreak, begin)) {
        text += html.sliced(begin, end - begin) + u'\n';
        begin = end + lineBreak.size();
    }
    return text + html.sliced(begin);
}

} // namespace

namespace CleanedHtml {

QString fromDocument(const QTextDocument& document)
{
    QString html;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin())
            html += lineBreak;
        Runs runs;
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            if (run.fragment().isValid())
                runs.take(run.fragment());
        }
        html += runs.html();
    }
    return html;
}

QString withoutForeignTags(const QString& html)
{
    // What the defining expression, <(?!/?(sub|sup|br)\b)[^>]*>, finds, without its quadratic time
    // where many "<" have no ">". It finds nothing at all in text that is not valid.
    qsizetype opening = html.indexOf(u'<');
    if (opening < 0 || !html.isValidUtf16())
        return html;
    QString kept;
    qsizetype keptUntil = 0;
    qsizetype closing = -1;
    while (opening >= 0) {
        if (closing < opening)
            closing = html.indexOf(u'>', opening);
        if (closing < 0)
            break;
        qsizetype next = opening + 1;
        if (!isKeptTag(QStringView(html).sliced(next))) {
            kept += QStringView(html).sliced(keptUntil, opening - keptUntil);
            keptUntil = next = closing + 1;
        }
        opening = html.indexOf(u'<', next);
    }
    return keptUntil == 0 ? html : kept + QStringView(html).sliced(keptUntil);
}

QString forHtmlReader(const QString& html, int pieces)
{
    return HtmlReaderText::prepared(html, pieces).html;
}

void intoDocument(QTextDocument& document, const QString& html)
{
    const HtmlReaderText::Prepared text = HtmlReaderText::prepared(html, mostPieces);
    document.setHtml(text.html);
    if (!text.rest.isEmpty())
        StandInPicture::giveRest(document, text.rest);
}

qsizetype lengthOfShown(QStringView text)
{
    qsizetype length = 0;
    for (int lines = 0; length < std::min(text.size(), mostCharacters); ++length) {
        const QChar c = text.at(length);
        const bool isPaired = length + 1 < text.size() && isPair(c, text.at(length + 1));
        lines += endsLine(c) && !isPaired ? 1 : 0;
        if (lines > mostPieces)
            break;
    }
    const bool isBetween =
        length > 0 && length < text.size() && isPair(text.at(length - 1), text.at(length));
    return isBetween ? length - 1 : length;
}

QString fromPlainText(QStringView text)
{
    // QString::replace() moves all that follows for each thousand of breaks.
    QString html;
    html.reserve(text.size());
    qsizetype lineBegin = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!endsLine(c))
            continue;
        html += text.sliced(lineBegin, i - lineBegin) + lineBreak;
        if (i + 1 < text.size() && c == u'\r' && text.at(i + 1) == u'\n')
            ++i;
        lineBegin = i + 1;
    }
    return html + text.sliced(lineBegin);
}

QString plainText(const QTextCursor& selection)
{
    const QString shown = selection.selection().toPlainText();
    QTextCursor place(selection.document());
    QString text;
    qsizetype taken = 0;
    for (qsizetype picture = shown.indexOf(QChar::ObjectReplacementCharacter); picture >= 0;
         picture = shown.indexOf(QChar::ObjectReplacementCharacter, picture + 1)) {
        place.setPosition(selection.selectionStart() + static_cast<int>(picture) + 1);
        const QTextCharFormat format = place.charFormat();
        const QString stoodFor = StandInPicture::textOf(format);
        if (stoodFor.isEmpty())
            continue;
        text += QStringView(shown).sliced(taken, picture - taken);
        text += StandInPicture::isOfRest(format) ? withLineFeeds(stoodFor) : stoodFor;
        taken = picture + 1;
    }
    return taken == 0 ? shown : text + QStringView(shown).sliced(taken);
}

} // namespace CleanedHtml
