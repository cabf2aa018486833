// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/statusline.h"

#include "widgets/elidedlabel.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

StatusLine::StatusLine(QWidget* parent)
    : QWidget(parent)
{}

QSize StatusLine::sizeHint() const
{
    return minimumSizeHint();
}

QSize StatusLine::minimumSizeHint() const
{
    return {0, ElidedLabel::lineHeight(fontMetrics())};
}

QList<int> StatusLine::fairShares(const QList<int>& wanted, int room)
{
    QList<qsizetype> order(wanted.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&wanted](qsizetype a, qsizetype b) { return wanted.at(a) < wanted.at(b); });
    QList<int> shares(wanted.size());
    int left = std::max(room, 0);
    auto others = static_cast<int>(wanted.size());
    for (const qsizetype index : order) {
        shares[index] = std::min(wanted.at(index), left / others);
        left -= shares.at(index);
        --others;
    }
    return shares;
}

ElidedLabel* StatusLine::addLabel(Side side, Rank rank, const char* name, const QString& meaning)
{
    auto* label = new ElidedLabel(this);
    label->setObjectName(name);
    label->setAccessibleDescription(meaning);
    const auto behind = std::find_if(places.cbegin(), places.cend(),
                                     [side](const Place& place) { return place.side > side; });
    places.insert(behind, {label, side, rank});
    return label;
}

bool StatusLine::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}

void StatusLine::resizeEvent(QResizeEvent* /*event*/)
{
    arrange();
}

QList<int> StatusLine::shares(const QList<Place>& shown, int room)
{
    const auto wantedBy = [&shown](Rank rank) {
        QList<int> wanted;
        for (const Place& place : shown)
            wanted.append(place.rank == rank ? place.label->sizeHint().width() : 0);
        return wanted;
    };
    QList<int> widths = fairShares(wantedBy(Rank::First), room);
    const int left = room - std::accumulate(widths.begin(), widths.end(), 0);
    const QList<int> others = fairShares(wantedBy(Rank::Second), left);
    std::transform(widths.begin(), widths.end(), others.begin(), widths.begin(), std::plus<>());
    return widths;
}

void StatusLine::arrange()
{
    QList<Place> shown = places;
    shown.removeIf([](const Place& place) { return place.label->isHidden(); });
    if (shown.isEmpty())
        return;
    const auto count = static_cast<int>(shown.size());
    const int gap = std::min(2 * fontMetrics().averageCharWidth(), width() / count);
    const int room = width() - gap * count;
    const QList<int> widths = shares(shown, room);

    int x = gap / 2;
    int unused = room - std::accumulate(widths.begin(), widths.end(), 0);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        if (shown.at(i).side == Side::Right)
            x += std::exchange(unused, 0);
        shown.at(i).label->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), QRect(x, 0, widths.at(i), height())));
        x += widths.at(i) + gap;
    }
}
