// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointtext.h"

#include "spectrum/decimaltext.h"
#include "spectrum/plainlinescanner.h"

#include <QRegularExpression>
#include <QStringList>
#include <QStringTokenizer>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t lineFeed = u'\n';

/// The point of the line that begins where the scanner stands; the line is read, whatever it is.
// inline, so that a loop over 100,000 lines keeps the scanner in registers.
inline std::optional<QPointF> nextPoint(PlainLineScanner& scanner)
{
    std::optional<QPointF> point = scanner.point();
    if (!point)
        point = PointText::parseLineByExpression(scanner.line().toString());
    return point;
}

/// One line for each point, joined by line feeds.
template <typename AppendLine>
QString textOf(const QList<QPointF>& points, AppendLine appendLine)
{
    constexpr qsizetype usualLineLength = 20;
    QString text;
    text.reserve(points.size() * usualLineLength);
    for (const QPointF& point : points) {
        if (!text.isEmpty())
            text.append(QChar(lineFeed));
        appendLine(text, point);
    }
    return text;
}

QString fixedText(const QList<QPointF>& points, int energyDecimals)
{
    constexpr int intensityDecimals = 2;
    return textOf(points, [energyDecimals](QString& text, const QPointF& point) {
        DecimalText::appendFixed(text, point.x(), energyDecimals);
        text.append(u' ');
        DecimalText::appendFixed(text, point.y(), intensityDecimals);
    });
}

} // namespace

namespace PointText {

QList<QPointF> parse(QStringView text)
{
    constexpr qsizetype shortestUsualLine = 8;
    QList<QPointF> points;
    points.reserve(text.size() / shortestUsualLine);
    PlainLineScanner scanner(text);
    while (!scanner.atEnd()) {
        const std::optional<QPointF> point = nextPoint(scanner);
        if (point)
            points.append(*point);
    }
    return points;
}

std::optional<QPointF> pointOf(QStringView line)
{
    PlainLineScanner scanner(line);
    return nextPoint(scanner);
}

bool isBlank(QStringView line)
{
    return line.trimmed().isEmpty();
}

void forEachLine(QStringView text, const std::function<void(const Line& line)>& visit)
{
    PlainLineScanner scanner(text);
    Line line;
    bool another = true;
    while (another) {
        line.position = text.size() - scanner.left();
        line.point = nextPoint(scanner);
        const qsizetype next = text.size() - scanner.left();
        another = next > line.position && text.at(next - 1) == QChar(lineFeed);
        line.length = next - line.position - (another ? 1 : 0);
        visit(line);
        ++line.number;
    }
}

Census census(QStringView text)
{
    Census census;
    forEachLine(text, [&census, text](const Line& line) {
        if (line.point) {
            ++census.points;
            // Of a number and none it is the number.
            census.lowestEnergy = std::fmin(census.lowestEnergy, line.point->x());
            census.highestEnergy = std::fmax(census.highestEnergy, line.point->x());
            census.largestIntensity = std::fmax(census.largestIntensity, line.point->y());
        } else if (!isBlank(text.sliced(line.position, line.length))) {
            ++census.otherLines;
            if (census.firstOtherLine == 0)
                census.firstOtherLine = line.number + 1;
        }
    });
    return census;
}

std::optional<QPointF> parseLineByExpression(const QString& line)
{
    static const QRegularExpression separator(u"[,;\\s]+"_s);
    const QStringList parts = line.split(separator, Qt::SkipEmptyParts);
    if (parts.size() != 2)
        return {};
    bool energyIsNumber = false;
    bool intensityIsNumber = false;
    const QPointF point(parts.at(0).toDouble(&energyIsNumber),
                        parts.at(1).toDouble(&intensityIsNumber));
    if (!energyIsNumber || !intensityIsNumber)
        return {};
    return point;
}

QString withoutEmptyLines(const QString& text)
{
    if (!text.startsWith(QChar(lineFeed)) && !text.endsWith(QChar(lineFeed)) &&
        !text.contains("\n\n"_L1)) {
        return text;
    }
    QString kept;
    kept.reserve(text.size());
    for (const QStringView line : qTokenize(text, QChar(lineFeed), Qt::SkipEmptyParts)) {
        if (!kept.isEmpty())
            kept.append(QChar(lineFeed));
        kept.append(line);
    }
    return kept;
}

QString normalizedText(const QList<QPointF>& points)
{
    return fixedText(points, 4);
}

QString resampledText(const QList<QPointF>& points)
{
    return fixedText(points, 3);
}

QString loadedText(const QList<QPointF>& points)
{
    return textOf(points, [](QString& text, const QPointF& point) {
        DecimalText::appendSignificant(text, point.x());
        text.append("; "_L1);
        DecimalText::appendSignificant(text, point.y());
    });
}

} // namespace PointText
