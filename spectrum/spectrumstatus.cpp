// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumstatus.h"

#include <QLocale>
#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString numberText(double number)
{
    // The short form would be 1e+05 for the counts of a detector.
    constexpr double fewestWithExponent = 1e15;
    constexpr double mostWithExponent = 1e-5;
    const double size = std::abs(number);
    const bool isPlain = size == 0 || (size >= mostWithExponent && size < fewestWithExponent);
    return QString::number(number, isPlain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

QString pointsText(qsizetype count)
{
    if (count == 0)
        return u"No points"_s;
    return count == 1 ? u"1 point"_s : u"%1 points"_s.arg(count);
}

QString otherLinesText(qsizetype count, qsizetype first)
{
    if (count == 1)
        return u"1 line not understood (line %1)"_s.arg(first);
    return u"%1 lines not understood (first: line %2)"_s.arg(count).arg(first);
}

} // namespace

namespace SpectrumStatus {

QString toText(const PointText::Census& census)
{
    QStringList facts{pointsText(census.points)};
    if (census.otherLines > 0)
        facts.append(otherLinesText(census.otherLines, census.firstOtherLine));
    if (!std::isnan(census.lowestEnergy)) {
        const QString lowest = numberText(census.lowestEnergy);
        const QString highest = numberText(census.highestEnergy);
        const QString span = lowest == highest ? lowest : lowest + u" to "_s + highest;
        facts.append(span + u" eV"_s);
    }
    if (!std::isnan(census.largestIntensity))
        facts.append(u"largest intensity "_s + numberText(census.largestIntensity));
    return facts.join(u", "_s);
}

} // namespace SpectrumStatus
