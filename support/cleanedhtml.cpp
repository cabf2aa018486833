// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/cleanedhtml.h"

#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>

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

QString fromFragment(const QTextFragment& fragment)
{
    const auto alignment = fragment.charFormat().verticalAlignment();
    QStringList lines = fragment.text().replace(QChar::LineSeparator, u'\n').split(u'\n');
    for (QString& line : lines)
        line = raisedOrLowered(line, alignment);
    return lines.join(lineBreak);
}

bool isAsciiLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// What the expression "\w" means when it knows nothing of Unicode.
bool isWordCharacter(QChar c)
{
    return isAsciiLetter(c) || (c >= u'0' && c <= u'9') || c == u'_';
}

bool canFollowTagOpening(QChar c)
{
    return isAsciiLetter(c) || c == u'/' || c == u'!' || c == u'?';
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

/// Says which tags of a text may reach the HTML reader, whose time grows exponentially with nested
/// table parts and quadratically with everything else that is left open. It only counts: any
/// attempt to follow the nesting would have to guess right what the reader takes for a closing tag.
class TagBudget
{
public:
    /// Whether the tag between "<" and ">" (both excluded) may stay.
    bool admits(QStringView tag)
    {
        const bool closing = tag.startsWith(u'/');
        const QStringView rest = closing ? tag.sliced(1) : tag;
        const auto nameEnd = std::find_if_not(rest.begin(), rest.end(),
                                              [](QChar c) { return c.isLetterOrNumber(); });
        const QString name = rest.first(nameEnd - rest.begin()).toString().toLower();
        // The reader expands entities in names; no element is called by such a name.
        if (nameEnd != rest.end() && *nameEnd == u'&')
            return false;
        // Only tags that hold nothing else are sure to be for the reader what they are here.
        const bool isBare = nameEnd == rest.end();
        if (isBare && name == "sub"_L1)
            return changeDepth(subscriptDepth, closing);
        if (isBare && name == "sup"_L1)
            return changeDepth(superscriptDepth, closing);
        if (isTablePart(name))
            return tableParts-- > 0;
        return closing || name == "br"_L1 || others-- > 0;
    }

private:
    static bool isTablePart(const QString& name)
    {
        static constexpr std::array parts{"table"_L1, "tr"_L1,    "td"_L1,    "th"_L1,
                                          "tbody"_L1, "thead"_L1, "tfoot"_L1, "caption"_L1};
        return std::find(parts.begin(), parts.end(), name) != parts.end();
    }

    static bool changeDepth(int& depth, bool closing)
    {
        constexpr int deepest = 16;
        if (closing)
            depth = std::max(0, depth - 1);
        else if (depth >= deepest)
            return false;
        else
            ++depth;
        return true;
    }

    int subscriptDepth = 0;
    int superscriptDepth = 0;
    int tableParts = 24;
    int others = 1000;
};

} // namespace

namespace CleanedHtml {

QString fromDocument(const QTextDocument& document)
{
    QString html;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin())
            html += lineBreak;
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            if (run.fragment().isValid())
                html += fromFragment(run.fragment());
        }
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

QString forHtmlReader(const QString& html)
{
    QString prepared;
    prepared.reserve(html.size());
    const QLatin1StringView commentStart("<!--");
    const QLatin1StringView commentEnd("-->");
    const qsizetype lastCommentEnd = html.lastIndexOf(commentEnd);
    TagBudget budget;

    qsizetype position = 0;
    while (position < html.size()) {
        const QStringView rest = QStringView(html).sliced(position);
        if (rest.front() != u'<') {
            prepared += rest.front();
            ++position;
            continue;
        }
        if (rest.startsWith(commentStart) && position + commentStart.size() <= lastCommentEnd) {
            position = html.indexOf(commentEnd, position + commentStart.size()) + commentEnd.size();
            continue;
        }
        // A tag ends before the next one begins: in "a<b<sup>2</sup>" the first "<" is text.
        const auto end = std::find_if(rest.begin() + 1, rest.end(),
                                      [](QChar c) { return c == u'<' || c == u'>'; });
        if (end == rest.end() || *end == u'<' || !canFollowTagOpening(rest.at(1)) ||
            rest.startsWith(commentStart)) {
            prepared += "&lt;"_L1;
            ++position;
            continue;
        }
        const QStringView tag = rest.first(end - rest.begin() + 1);
        if (budget.admits(tag.sliced(1, tag.size() - 2)))
            prepared += tag;
        position += tag.size();
    }
    return prepared;
}

} // namespace CleanedHtml
