// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The quick ways through point text agree with the plain ones on every input.

#include "spectrum/pointtext.h"

#include "fuzz/fuzztarget.h"
#include "spectrum/spectrumpoints.h"

#include <cstring>
#include <optional>

namespace {

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool same(const QPointF& a, const QPointF& b)
{
    return sameBits(a.x(), b.x()) && sameBits(a.y(), b.y());
}

/// The scan that defines resampling: from the second point on, anew for every grid energy.
QList<QPointF> interpolatedByFullScan(const QList<QPointF>& points, const QList<QPointF>& grid)
{
    QList<QPointF> result;
    for (const QPointF& gridPoint : grid) {
        const double g = gridPoint.x();
        for (qsizetype j = 1; j < points.size(); ++j) {
            const QPointF& to = points.at(j);
            const QPointF& from = points.at(j - 1);
            if (to.x() >= g) {
                result.append(QPointF(
                    g, (to.y() - from.y()) * ((g - from.x()) / (to.x() - from.x())) + from.y()));
                break;
            }
        }
    }
    return result;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr qsizetype mostLines = 200;
    const QStringList lines =
        QString::fromUtf8(Fuzz::bytes(data, size)).split(u'\n').mid(0, mostLines);
    QList<QPointF> expected;
    for (const QString& line : lines) {
        if (const auto point = PointText::parseLineByExpression(line))
            expected.append(*point);
    }
    const QList<QPointF> points = PointText::parse(lines.join(u'\n'));
    Fuzz::require(points.size() == expected.size(), "the quick parser finds the same points");
    for (qsizetype i = 0; i < points.size(); ++i)
        Fuzz::require(same(points.at(i), expected.at(i)),
                      "the quick parser reads the same numbers");
    Fuzz::require(PointText::census(lines.join(u'\n')).points == points.size(),
                  "counting finds the same points");

    const auto resampled = SpectrumPoints::resampled(points);
    constexpr qsizetype mostGridValues = 3000; // the full scan is quadratic
    if (resampled && resampled->size() <= mostGridValues) {
        const QList<QPointF> scanned = interpolatedByFullScan(points, *resampled);
        Fuzz::require(scanned.size() == resampled->size(), "the quick search finds every point");
        for (qsizetype i = 0; i < scanned.size(); ++i) {
            const bool bothNaN = scanned.at(i).y() != scanned.at(i).y() &&
                                 resampled->at(i).y() != resampled->at(i).y();
            Fuzz::require(bothNaN || same(scanned.at(i), resampled->at(i)),
                          "the quick search interpolates between the same points");
        }
    }
    if (const auto normalized = SpectrumPoints::normalized(points))
        Fuzz::require(normalized->size() == points.size(), "normalising keeps every point");
    return 0;
}
