// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Work on points alone: reading them from a text and resampling them. What the editor does stands
// beside the least that could be done, and beside the way that defines the result.

#include "benchmarks/measurement.h"
#include "spectrum/pointtext.h"
#include "spectrum/spectrumpoints.h"

#include <QStringList>

#include <algorithm>
#include <charconv>
#include <memory>
#include <vector>

namespace {

template <typename Work>
Measurement measurementOf(Work work)
{
    return [work = std::move(work)] { return costOf([&work] { keep(work()); }); };
}

// Reading

Measurement parseText(const Subject& subject)
{
    return measurementOf([text = subject.pointText()] { return PointText::parse(text).size(); });
}

/// What the editor does with a typed text: it keeps the lines that are not empty.
Measurement parseTyped(const Subject& subject)
{
    return measurementOf([text = subject.pointText()] {
        const QString lines = PointText::withoutEmptyLines(text);
        return PointText::parse(lines).size();
    });
}

Measurement parseByExpression(const Subject& subject)
{
    return measurementOf([text = subject.pointText()] {
        QList<QPointF> points;
        const QStringList lines = text.split(u'\n', Qt::SkipEmptyParts);
        for (const QString& line : lines) {
            if (const auto point = PointText::parseLineByExpression(line))
                points.append(*point);
        }
        return points.size();
    });
}

/// std::from_chars over the bare characters: every number that can be found, no lines, no rules.
Measurement parseByFromChars(const Subject& subject)
{
    return measurementOf([text = subject.pointText().toLatin1(), size = subject.size] {
        std::vector<QPointF> points;
        points.reserve(static_cast<std::size_t>(size));
        const char* next = text.cbegin();
        const char* const end = text.cend();
        const auto number = [&next, end] {
            while (next != end && (*next == ' ' || *next == '\n'))
                ++next;
            double value = 0;
            next = std::from_chars(next, end, value).ptr;
            return value;
        };
        while (next != end) {
            const double energy = number();
            const double intensity = number();
            points.emplace_back(energy, intensity);
            while (next != end && *next == '\n')
                ++next;
        }
        return static_cast<qsizetype>(points.size());
    });
}

Measurement copyText(const Subject& subject)
{
    return measurementOf([text = subject.pointText()] {
        QString copy = text;
        copy.detach();
        return copy.size();
    });
}

// Resampling

QList<QPointF> pointsOf(const Subject& subject, double widthFactor = 1)
{
    QList<QPointF> points = PointText::parse(subject.pointText());
    for (QPointF& point : points)
        point.setX(point.x() * widthFactor);
    return points;
}

Measurement resample(const Subject& subject, double widthFactor)
{
    return measurementOf([points = pointsOf(subject, widthFactor)] {
        const auto resampled = SpectrumPoints::resampled(points);
        return resampled ? resampled->size() : 0;
    });
}

/// Interpolates at the grid energies of resampling; @p find gives the point above an energy.
template <typename Find>
Measurement resampleWith(const Subject& subject, Find find)
{
    const QList<QPointF> points = pointsOf(subject);
    const QList<QPointF> grid = SpectrumPoints::resampled(points).value_or(QList<QPointF>());
    return measurementOf([points, grid, find] {
        QList<QPointF> result;
        result.reserve(grid.size());
        for (const QPointF& gridPoint : grid) {
            const double energy = gridPoint.x();
            const auto to = find(points, energy);
            const auto from = to - 1;
            const double share = (energy - from->x()) / (to->x() - from->x());
            result.append(QPointF(energy, (to->y() - from->y()) * share + from->y()));
        }
        return result.size();
    });
}

/// As the result is defined: the first point not below, sought from the start for each energy.
Measurement resampleByScan(const Subject& subject)
{
    return resampleWith(subject, [](const QList<QPointF>& points, double energy) {
        return std::find_if(points.cbegin() + 1, points.cend(),
                            [energy](const QPointF& point) { return point.x() >= energy; });
    });
}

/// As it could be done if points were always sorted.
Measurement resampleByBisection(const Subject& subject)
{
    return resampleWith(subject, [](const QList<QPointF>& points, double energy) {
        return std::lower_bound(
            points.cbegin() + 1, points.cend(), energy,
            [](const QPointF& point, double wanted) { return point.x() < wanted; });
    });
}

/// Whoever leaves the order of the points open has to look at all of them.
Measurement readPoints(const Subject& subject)
{
    return measurementOf([points = pointsOf(subject)] {
        double sum = 0;
        for (const QPointF& point : points)
            sum += point.x();
        return static_cast<qsizetype>(sum);
    });
}

} // namespace

Measurements pointMeasurements()
{
    return {
        {"parse-text", parseText},
        {"parse-typed", parseTyped},
        {"parse-by-expression", parseByExpression},
        {"parse-by-from-chars", parseByFromChars},
        {"copy-text", copyText},
        {"resample", [](const Subject& subject) { return resample(subject, 1); }},
        {"resample-wide", [](const Subject& subject) { return resample(subject, 100); }},
        {"resample-by-scan", resampleByScan},
        {"resample-by-bisection", resampleByBisection},
        {"read-points", readPoints},
    };
}
