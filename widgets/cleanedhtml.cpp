// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/cleanedhtml.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>
#include <array>

namespace {

constexpr QLatin1String lineBreak("<br>");

QString raisedOrLowered(const QString& text, QTextCharFormat::VerticalAlignment alignment)
{
    switch (alignment) {
    case QTextCharFormat::AlignSuperScript:
        return QLatin1String("<sup>") + text + QLatin1String("</sup>");
    case QTextCharFormat::AlignSubScript:
        return QLatin1String("<sub>") + text + QLatin1String("</sub>");
    default:
        return text;
    }
}

QString fromFragment(const QTextFragment& fragment)
{
    const auto alignment = fragment.charFormat().verticalAlignment();
    QStringList lines =
        fragment.text().replace(QChar::LineSeparator, QLatin1Char('\n')).split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = raisedOrLowered(line, alignment);
    return lines.join(lineBreak);
}

bool isAsciiLetter(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
           (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

bool canFollowTagOpening(QChar c)
{
    return isAsciiLetter(c) || c == QLatin1Char('/') || c == QLatin1Char('!') ||
           c == QLatin1Char('?');
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
        const bool closing = tag.startsWith(QLatin1Char('/'));
        const QStringView rest = closing ? tag.sliced(1) : tag;
        const auto nameEnd = std::find_if_not(rest.begin(), rest.end(),
                                              [](QChar c) { return c.isLetterOrNumber(); });
        const QString name = rest.first(nameEnd - rest.begin()).toString().toLower();
        // The reader expands entities in names; no element is called by such a name.
        if (nameEnd != rest.end() && *nameEnd == QLatin1Char('&'))
            return false;
        // Only tags that hold nothing else are sure to be for the reader what they are here.
        const bool isBare = nameEnd == rest.end();
        if (isBare && name == QLatin1String("sub"))
            return changeDepth(subscriptDepth, closing);
        if (isBare && name == QLatin1String("sup"))
            return changeDepth(superscriptDepth, closing);
        if (isTablePart(name))
            return tableParts-- > 0;
        return closing || name == QLatin1String("br") || others-- > 0;
    }

private:
    static bool isTablePart(const QString& name)
    {
        static constexpr std::array parts{QLatin1String("table"), QLatin1String("tr"),
                                          QLatin1String("td"),    QLatin1String("th"),
                                          QLatin1String("tbody"), QLatin1String("thead"),
                                          QLatin1String("tfoot"), QLatin1String("caption")};
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
    static const QRegularExpression foreignTag(QStringLiteral("<(?!/?(sub|sup|br)\\b)[^>]*>"));
    return QString(html).remove(foreignTag);
}

QString forHtmlReader(const QString& html)
{
    QString prepared;
    prepared.reserve(html.size());
    const QLatin1String commentStart("<!--");
    const QLatin1String commentEnd("-->");
    const qsizetype lastCommentEnd = html.lastIndexOf(commentEnd);
    TagBudget budget;

    qsizetype position = 0;
    while (position < html.size()) {
        const QStringView rest = QStringView(html).sliced(position);
        if (rest.front() != QLatin1Char('<')) {
            prepared += rest.front();
            ++position;
            continue;
        }
        if (rest.startsWith(commentStart) && position + commentStart.size() <= lastCommentEnd) {
            position = html.indexOf(commentEnd, position + commentStart.size()) + commentEnd.size();
            continue;
        }
        // A tag ends before the next one begins: in "a<b<sup>2</sup>" the first "<" is text.
        const auto end = std::find_if(rest.begin() + 1, rest.end(), [](QChar c) {
            return c == QLatin1Char('<') || c == QLatin1Char('>');
        });
        if (end == rest.end() || *end == QLatin1Char('<') || !canFollowTagOpening(rest.at(1)) ||
            rest.startsWith(commentStart)) {
            prepared += QLatin1String("&lt;");
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
