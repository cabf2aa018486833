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
        {QStringLiteral("Name"), QStringLiteral("<i>n</i>-Species %1").arg(number)},
        {QStringLiteral("Aliases"), QStringLiteral("first name<br>second name<br>third name")},
        {QStringLiteral("Mass"), 58.12 + number},
        {QStringLiteral("Formula"), QStringLiteral("C<sub>4</sub>H<sub>10</sub>")},
        {QStringLiteral("InChI"), QStringLiteral("InChI=1S/C4H10/c1-3-4-2/h3-4H2,1-2H3")},
        {QStringLiteral("CAS"), QStringLiteral("106-97-8")},
        {QStringLiteral("PubChem"), QString::number(number)},
        {QStringLiteral("AIE"), QStringLiteral("10.53 \u00b1 0.10")},
        {QStringLiteral("VIE"), QStringLiteral("11.09")},
        {QStringLiteral("AIE_Comment"), QStringLiteral("from the onset")},
        {QStringLiteral("VIE_Comment"), QStringLiteral("from the maximum")},
        {QStringLiteral("StructuralFormula"), structurePicture()},
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
        {QStringLiteral("Title"), QStringLiteral("Spectrum %1 of <sup>13</sup>C").arg(number)},
        {QStringLiteral("Uploader"), QStringLiteral("A. Person")},
        {QStringLiteral("DOI"), QStringLiteral("10.1000/example.%1").arg(number)},
        {QStringLiteral("SpectType"), number % 6},
        {QStringLiteral("FurtherRefs"), QStringLiteral("A. Person, B. Person, J. Ex. 1, 2 (2020)")},
        {QStringLiteral("T"), QStringLiteral("298")},
        {QStringLiteral("FurtherComments"), QStringLiteral("Resolved.<br>Background subtracted.")},
        {QStringLiteral("CreatedDate"), QStringLiteral("2024-05-06")},
        {QStringLiteral("FacilityDate"), QStringLiteral("Synchrotron, 2023")},
        {QStringLiteral("LineSpectrum"), false},
        {QStringLiteral("Source"), QStringLiteral("Undulator")},
        {QStringLiteral("Resolution"), QStringLiteral("10")},
        {QStringLiteral("Normalization"), QStringLiteral("Photodiode")},
        {QStringLiteral("E"), energies},
        {QStringLiteral("I"), intensities},
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
