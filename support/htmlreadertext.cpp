// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/htmlreadertext.h"

#include "support/cleanedhtml.h"
#include "support/markupbudget.h"
#include "support/standinpicture.h"
#include "support/writtencharacter.h"

#include <algorithm>
#include <array>
#include <cstddef>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView commentStart("<!--");
constexpr QLatin1StringView commentEnd("-->");

/// Elements whose content is no text of the document. Up to their closing tag nothing is markup.
constexpr std::array hiddenElements{"style"_L1, "script"_L1, "title"_L1};

/// As texts have them whose markup is not foreign.
constexpr std::array plainTags{"sub"_L1, "/sub"_L1, "sup"_L1, "/sup"_L1,
                               "br"_L1,  "br/"_L1,  "br /"_L1};

bool canFollowTagOpening(QChar c)
{
    return isAsciiLetter(c) || c == u'/' || c == u'!' || c == u'?';
}

/// Goes through a text front to back.
class Preparation
{
public:
    Preparation(const QString& text, int most, MarkupBudget::Limits limits)
        : html(text)
        , mostPieces(most)
        , budget(limits, text.size())
        , hasPlainTagsOnly(limits == MarkupBudget::Limits::None)
        , lastCommentEnd(html.lastIndexOf(commentEnd))
    {
        result.reserve(html.size());
    }

    HtmlReaderText::Prepared run()
    {
        while (!rest().isEmpty() && !isFull()) {
            if (rest().front() == u'<')
                takeMarkup();
            else
                takeText();
        }
        putExcessMarks();
        shown = result.size();
        if (!rest().isEmpty())
            result += StandInPicture::ofRest();
        return {result, isFormatted, rest().toString()};
    }

    [[nodiscard]] bool isOverspent() const { return budget.isOverspent(shown); }

private:
    [[nodiscard]] QStringView rest() const { return QStringView(html).sliced(position); }

    /// Not within raised or lowered text, if that ends in time.
    [[nodiscard]] bool isFull() const
    {
        const bool isAfterRun = !budget.isInRaisedOrLowered();
        return isBeyond(1) && (isAfterRun || isBeyond(2));
    }

    /// Beyond what is shown, or so many times that.
    [[nodiscard]] bool isBeyond(int times) const
    {
        return pieces > times * mostPieces || result.size() >= times * CleanedHtml::mostCharacters;
    }

    void takeText()
    {
        constexpr qsizetype longestRun = 100'000;
        const QStringView run = rest().first(std::min(rest().size(), longestRun));
        const auto end = std::find_if_not(run.begin(), run.end(), WrittenCharacter::isPlain);
        if (end != run.begin()) {
            if (std::any_of(run.begin(), end, isAsciiLetterOrDigit))
                takeScript(QChar::Script_Latin);
            put(run.first(end - run.begin()));
            return;
        }
        const WrittenCharacter next = WrittenCharacter::first(rest());
        if (!next.isMark()) {
            if (next.character == u'&')
                pieces += isUnusualReference(rest()) ? 1 : 0;
            else if (next.isPiece())
                ++pieces;
            else
                takeScript(next.writing());
            put(rest().first(next.length));
            return;
        }
        // No writing puts more on a letter: Unicode Standard Annex 15, "Stream-Safe Text Process".
        constexpr int mostMarks = 30;
        if (marks++ < mostMarks)
            result += rest().first(next.length);
        else
            excessMarks += QStringView(QChar::fromUcs4(next.character));
        position += next.length;
    }

    void takeScript(QChar::Script next)
    {
        if (next != script && next != QChar::Script_Inherited)
            ++pieces;
        script = next == QChar::Script_Inherited ? script : next;
    }

    void put(QStringView text)
    {
        putExcessMarks();
        marks = 0;
        result += text;
        position += text.size();
    }

    void putExcessMarks()
    {
        // Each picture is dear, too: for few marks it would not pay.
        constexpr qsizetype fewMarks = 300;
        if (excessMarks.size() > fewMarks)
            result += StandInPicture::ofMarks(excessMarks);
        else
            result += excessMarks;
        excessMarks.clear();
    }

    void takeMarkup()
    {
        putExcessMarks();
        if (rest().startsWith(commentStart) && position + commentStart.size() <= lastCommentEnd) {
            position = html.indexOf(commentEnd, position + commentStart.size()) + commentEnd.size();
            return;
        }
        // A tag ends before the next one begins: in "a<b<sup>2</sup>" the first "<" is text.
        const QStringView text = rest();
        const auto end = std::find_if(text.begin() + 1, text.end(),
                                      [](QChar c) { return c == u'<' || c == u'>'; });
        if (end == text.end() || *end == u'<' || !canFollowTagOpening(text.at(1)) ||
            text.startsWith(commentStart)) {
            marks = 0;
            result += "&lt;"_L1;
            ++position;
            return;
        }
        takeTag(text.first(end - text.begin() + 1));
    }

    void takeTag(QStringView tag)
    {
        const QStringView inside = tag.sliced(1, tag.size() - 2);
        const auto hidden =
            std::find_if(hiddenElements.begin(), hiddenElements.end(),
                         [inside](QLatin1StringView name) { return isTagOf(name, inside); });
        if (hidden != hiddenElements.end()) {
            takeHiddenElement(static_cast<std::size_t>(hidden - hiddenElements.begin()), tag);
            return;
        }
        const bool isPlain =
            std::find(plainTags.begin(), plainTags.end(), inside) != plainTags.end();
        isFormatted = isFormatted || !isPlain;
        if (budget.admits(inside, result.size())) {
            // Without foreign markup only a line break is left that may have attributes.
            const bool isClosing = inside.startsWith(u'/');
            result += hasPlainTagsOnly && !isPlain && !isClosing ? QStringView(u"<br>") : tag;
            pieces += isClosing ? 0 : 1;
        }
        position += tag.size();
    }

    static bool isTagOf(QLatin1StringView name, QStringView inside)
    {
        if (inside.startsWith(u'/'))
            inside = inside.sliced(1);
        return inside.startsWith(name, Qt::CaseInsensitive) &&
               (inside.size() == name.size() || !inside.at(name.size()).isLetterOrNumber());
    }

    /// Leaves the element out, or its tag when it has no end: then what follows is text. A short
    /// style sheet stays, like the one without which blanks would be lost in texts that the toolkit
    /// wrote.
    void takeHiddenElement(std::size_t element, QStringView tag)
    {
        const qsizetype content = position + tag.size();
        const QString closingTag = "</"_L1 + hiddenElements.at(element);
        isFormatted = true;
        const bool hasContent = !tag.startsWith("</"_L1) && !tag.endsWith("/>"_L1);
        qsizetype end = -1;
        if (hasContent && !endless.at(element)) {
            end = html.indexOf(closingTag, content, Qt::CaseInsensitive);
            endless.at(element) = end < 0;
        }
        const qsizetype closed = end < 0 ? -1 : html.indexOf(u'>', end);
        if (closed < 0) {
            position = content;
            return;
        }
        const QStringView sheet = QStringView(html).sliced(content, end - content);
        if (element == 0 && !sheet.contains(u'<') && budget.admitsStyleSheet(sheet.size()))
            result += tag + sheet + "</style>"_L1;
        position = closed + 1;
    }

    const QString& html;
    int mostPieces;
    MarkupBudget budget;
    bool hasPlainTagsOnly;
    qsizetype lastCommentEnd;
    QString result;
    qsizetype position = 0;
    bool isFormatted = false; ///< Whether there was markup other than the three that texts have.
    int marks = 0;            ///< Those on the last letter.
    QString excessMarks;
    int pieces = 0;
    qsizetype shown = 0; ///< Characters for the reader, the rest that one picture stands for apart.
    QChar::Script script = QChar::Script_Latin; ///< That of the last character.
    /// Of which hidden elements no further one is closed.
    std::array<bool, hiddenElements.size()> endless{};
};

} // namespace

namespace HtmlReaderText {

Prepared prepared(const QString& html, int mostPieces)
{
    Preparation usual(html, mostPieces, MarkupBudget::Limits::Usual);
    Prepared text = usual.run();
    if (!usual.isOverspent())
        return text;
    text = Preparation(html, mostPieces, MarkupBudget::Limits::Strict).run();
    text.isFormatted = true;
    return text;
}

Prepared unformatted(const QString& html, int mostPieces)
{
    return Preparation(html, mostPieces, MarkupBudget::Limits::None).run();
}

} // namespace HtmlReaderText
