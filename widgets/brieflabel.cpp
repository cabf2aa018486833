// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/brieflabel.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr qsizetype mostCharacters = 1000;

} // namespace

bool BriefLabel::isLong() const
{
    return text().size() > mostCharacters;
}

QString BriefLabel::beginning() const
{
    return text().first(mostCharacters);
}

QSize BriefLabel::sizeHint() const
{
    if (!isLong())
        return QLabel::sizeHint();
    return fontMetrics().size(Qt::TextSingleLine, beginning()).grownBy(contentsMargins());
}

QSize BriefLabel::minimumSizeHint() const
{
    return isLong() ? sizeHint() : QLabel::minimumSizeHint();
}

void BriefLabel::paintEvent(QPaintEvent* event)
{
    if (!isLong()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                          isEnabled(), beginning(), foregroundRole());
}
