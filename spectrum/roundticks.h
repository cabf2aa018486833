// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QChart;
class QValueAxis;

/// Puts the ticks of a chart's axis on round numbers, as many as have room for their labels.
class RoundTicks : public QObject
{
    Q_OBJECT

public:
    /// Watches the axis, which becomes its parent, from now on. The chart has to outlive the axis.
    RoundTicks(const QChart& itsChart, QValueAxis* itsAxis);

    /// The smallest of 1, 2 and 5 times a power of ten of which at most @p mostTicks multiples lie
    /// from @p lowest to @p highest. Not less than 0.01 as long as two multiples of that lie there:
    /// labels have two decimals. 0 where there is no such step: the range is empty, not finite, or
    /// too narrow for floating-point numbers as large as its ends.
    [[nodiscard]] static double step(double lowest, double highest, int mostTicks);

private:
    void update();
    [[nodiscard]] int mostTicks() const;

    const QChart& chart;
    QValueAxis& axis;
};
