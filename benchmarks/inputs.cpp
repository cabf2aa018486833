// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/inputs.h"

#include "species/speciesfile.h"
#include "species/structurepicture.h"

#include <QImage>
#include <QJsonArray>
#include <QPainter>

#include <cmath>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr double lowestEnergy = 8.0;

double rounded(double value, double perUnit)
{
    return std::round(value * perUnit) / perUnit;
}

QString structurePicture()
{
    QImage picture(200, 150, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 2));
    painter.drawPolyline(QPolygonF{{20, 100}, {60, 75}, {100, 100}, {140, 75}, {180, 100}});
    painter.end();
    return StructurePicture::toBase64Png(picture);
}

QJsonObject species(int number)
{
    return {
        {u"Name"_s, u"<i>n</i>-Species %1"_s.arg(number)},
        {u"Aliases"_s, u"first name<br>second name<br>third name"_s},
        {u"Mass"_s, 58.12 + number},
        {u"Formula"_s, u"C<sub>4</sub>H<sub>10</sub>"_s},
        {u"InChI"_s, u"InChI=1S/C4H10/c1-3-4-2/h3-4H2,1-2H3"_s},
        {u"CAS"_s, u"106-97-8"_s},
        {u"PubChem"_s, QString::number(number)},
        {u"AIE"_s, u"10.53 \u00b1 0.10"_s},
        {u"VIE"_s, u"11.09"_s},
        {u"AIE_Comment"_s, u"from the onset"_s},
        {u"VIE_Comment"_s, u"from the maximum"_s},
        {u"StructuralFormula"_s, structurePicture()},
    };
}

QJsonObject dataset(int number, int points)
{
    constexpr double gridStep = 0.001;
    QJsonArray energies;
    QJsonArray intensities;
    const QList<QPointF> all = Inputs::spectrum(points, points * gridStep);
    for (const QPointF& point : all) {
        energies.append(point.x());
        intensities.append(point.y());
    }
    return {
        {u"Title"_s, u"Spectrum %1 of <sup>13</sup>C"_s.arg(number)},
        {u"Uploader"_s, u"A. Person"_s},
        {u"DOI"_s, u"10.1000/example.%1"_s.arg(number)},
        {u"SpectType"_s, number % 6},
        {u"FurtherRefs"_s, u"A. Person, B. Person, J. Ex. 1, 2 (2020)"_s},
        {u"T"_s, u"298"_s},
        {u"FurtherComments"_s, u"Resolved.<br>Background subtracted."_s},
        {u"CreatedDate"_s, u"2024-05-06"_s},
        {u"FacilityDate"_s, u"Synchrotron, 2023"_s},
        {u"LineSpectrum"_s, false},
        {u"Source"_s, u"Undulator"_s},
        {u"Resolution"_s, u"10"_s},
        {u"Normalization"_s, u"Photodiode"_s},
        {u"E"_s, energies},
        {u"I"_s, intensities},
    };
}

} // namespace

namespace Inputs {

QList<QPointF> spectrum(int count, double width)
{
    // The distributions of the standard library differ from one to the next, its generators do not.
    std::mt19937
        generator; // NOLINT(*-msc51-cpp,*-msc32-c): the same numbers every time, on purpose
    const auto noise = [&generator] {
        return static_cast<double>(generator()) / static_cast<double>(std::mt19937::max());
    };
    constexpr double peakSpacing = 0.18; // eV
    constexpr double peakWidth = 0.02;

    QList<QPointF> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i) {
        const double energy = lowestEnergy + width * i / count;
        const double fromPeak = std::remainder(energy - lowestEnergy - 1, peakSpacing) / peakWidth;
        const double intensity = 1000 * std::exp(-fromPeak * fromPeak) + 20 * noise();
        points.append(QPointF(rounded(energy, 1e5), rounded(intensity, 1e2)));
    }
    return points;
}

QJsonObject entry(int number, int datasets, int points)
{
    QList<QJsonObject> all;
    for (int i = 1; i <= datasets; ++i)
        all.append(dataset(i, points));
    return SpeciesFile::assemble(species(number), all);
}

} // namespace Inputs
