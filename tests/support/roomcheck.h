// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSize>
#include <QStringList>

class QChartView;
class QLabel;
class QScrollArea;
class QWidget;

/// Measures whether everything that a shown window holds has the room that it needs: nothing
/// overlaps, nothing reaches beyond what it stands in, no text is cut, fields show their lines, and
/// what is scrolled can be brought into view. It knows kinds of widgets, and no widget by its name.
class RoomCheck
{
public:
    /// What lacks room, one line each; empty when all is well.
    [[nodiscard]] static QStringList faultsOf(const QWidget& window);

    /// How many captions, controls and fields were measured by all calls together.
    [[nodiscard]] static int measured();

private:
    void visitChildren(const QWidget& parent);
    void visit(const QWidget& widget);
    void checkNeighbours(const QWidget& parent, const QList<QWidget*>& children);
    void checkScrolled(const QScrollArea& area);
    void checkReach(const QScrollArea& area);
    bool checkLeaf(const QWidget& widget);
    void checkCaption(const QLabel& label);
    void checkField(const QWidget& field);
    void checkChart(const QChartView& chart);
    void checkSize(const QWidget& widget, QSize needed);
    void report(const QWidget& widget, const QString& what);

    QStringList faults;
    static inline int count = 0;
};
