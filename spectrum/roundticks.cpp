// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/roundticks.h"

#include <QFontMetrics>
#include <QtCharts/QChart>
#include <QtCharts/QValueAxis>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

double multiplesWithin(double lowest, double highest, double step)
{
    return std::floor(highest / step) - std::ceil(lowest / step) + 1;
}

} // namespace

RoundTicks::RoundTicks(const QChart& itsChart, QValueAxis* itsAxis)
    : QObject(itsAxis)
    , chart(itsChart)
    , axis(*itsAxis)
{
    // The axis tells of both ends before it is laid out for its new range. With the step of a
    // narrow range, a wide one would have thousands of ticks.
    connect(&axis, &QValueAxis::minChanged, this, &RoundTicks::update);
    connect(&axis, &QValueAxis::maxChanged, this, &RoundTicks::update);
    connect(&chart, &QChart::plotAreaChanged, this, &RoundTicks::update);
    update();
}

double RoundTicks::step(double lowest, double highest, int mostTicks)
{
    const double width = highest - lowest;
    const double largest = std::max(std::abs(lowest), std::abs(highest));
    constexpr double leastRelativeWidth = 1e-12;
    constexpr double leastWidth = 1e-300; // powers of ten below are no normal numbers
    if (!std::isfinite(width) || width <= std::max(largest * leastRelativeWidth, leastWidth) ||
        mostTicks < 1)
        return 0;
    constexpr double smallestLabelled = 0.01;
    if (multiplesWithin(lowest, highest, smallestLabelled) >= 2 &&
        multiplesWithin(lowest, highest, smallestLabelled) <= mostTicks)
        return smallestLabelled;
    // One power of ten below the first step that can be wide enough.
    for (int exponent = static_cast<int>(std::floor(std::log10(width / mostTicks))) - 1;;
         ++exponent) {
        for (const int factor : {1, 2, 5}) {
            // 10 to a negative power is not exact, its reciprocal is.
            const double step =
                exponent < 0 ? factor / std::pow(10, -exponent) : factor * std::pow(10, exponent);
            if (multiplesWithin(lowest, highest, step) <= mostTicks)
                return step;
        }
    }
}

int RoundTicks::mostTicks() const
{
    const QFontMetricsF metrics(axis.labelsFont());
    if (axis.orientation() == Qt::Vertical) {
        constexpr double linesATick = 2.5;
        return static_cast<int>(chart.plotArea().height() / (linesATick * metrics.height()));
    }
    constexpr int decimals = 2; // as in the label format
    const double label =
        std::max(metrics.horizontalAdvance(QString::number(axis.min(), 'f', decimals)),
                 metrics.horizontalAdvance(QString::number(axis.max(), 'f', decimals)));
    return static_cast<int>(chart.plotArea().width() / (label + metrics.horizontalAdvance(u'0')));
}

void RoundTicks::update()
{
    constexpr int fewest = 2;
    constexpr int most = 12;
    const double found = step(axis.min(), axis.max(), std::clamp(mostTicks(), fewest, most));
    if (found == 0) {
        axis.setTickType(QValueAxis::TicksFixed);
        return;
    }
    // The toolkit adds up the interval. A little less than the step keeps a tick at the end of the
    // range from being lost to rounding.
    constexpr double littleLess = 1 - 1e-13;
    axis.setTickAnchor(std::max(axis.min(), std::ceil(axis.min() / found) * found));
    axis.setTickInterval(found * littleLess);
    axis.setTickType(QValueAxis::TicksDynamic);
}
