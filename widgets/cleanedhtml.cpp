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

/// Keeps count of the open elements of a text and says which tags would nest them too deeply.
class NestingGuard
{
public:
    /// Whether the tag between "<" and ">" (both excluded) may stay.
    bool admits(QStringView tag)
    {
        const bool closing = tag.startsWith(QLatin1Char('/'));
        const QString name = nameOf(closing ? tag.mid(1) : tag);
        if (name.isEmpty() || isOneOf(name, voidElements))
            return true;
        return closing ? admitsClosing(name) : admitsOpening(name);
    }

private:
    static constexpr qsizetype maxDepth = 64;
    static constexpr qsizetype maxTableDepth = 4;
    static constexpr std::array voidElements{QLatin1String("br"), QLatin1String("hr"),
                                             QLatin1String("img"), QLatin1String("meta")};
    /// Elements whose closing tag HTML lets people leave out before the next one.
    static constexpr std::array selfEndingElements{QLatin1String("p"), QLatin1String("li"),
                                                   QLatin1String("tr"), QLatin1String("td"),
                                                   QLatin1String("th")};

    template <std::size_t Size>
    static bool isOneOf(const QString& name, const std::array<QLatin1String, Size>& names)
    {
        return std::find(names.begin(), names.end(), name) != names.end();
    }

    static QString nameOf(QStringView tag)
    {
        const auto end =
            std::find_if_not(tag.begin(), tag.end(), [](QChar c) { return c.isLetterOrNumber(); });
        return tag.first(end - tag.begin()).toString().toLower();
    }

    bool admitsOpening(const QString& name)
    {
        if (!open.isEmpty() && open.constLast() == name && isOneOf(name, selfEndingElements))
            return true;
        const bool tooDeep = open.size() >= maxDepth ||
                             (name == QLatin1String("table") && open.count(name) >= maxTableDepth);
        if (!tooDeep)
            open.append(name);
        return !tooDeep;
    }

    bool admitsClosing(const QString& name)
    {
        const qsizetype opening = open.lastIndexOf(name);
        if (opening < 0)
            return false;
        open.resize(opening);
        return true;
    }

    QStringList open;
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
    const qsizetype lastTagEnd = html.lastIndexOf(QLatin1Char('>'));
    NestingGuard nesting;

    qsizetype position = 0;
    while (position < html.size()) {
        const QChar c = html.at(position);
        if (c != QLatin1Char('<')) {
            prepared += c;
            ++position;
        } else if (position >= lastTagEnd || !canFollowTagOpening(html.at(position + 1))) {
            prepared += QLatin1String("&lt;");
            ++position;
        } else {
            const qsizetype end = html.indexOf(QLatin1Char('>'), position);
            const QStringView tag = QStringView(html).sliced(position, end + 1 - position);
            if (nesting.admits(tag.sliced(1, tag.size() - 2)))
                prepared += tag;
            position = end + 1;
        }
    }
    return prepared;
}

} // namespace CleanedHtml
