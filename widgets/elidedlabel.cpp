// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/elidedlabel.h"

#include "support/tooltip.h"

#include <QEvent>
#include <QtMath>

using namespace Qt::StringLiterals;

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    hide();
}

void ElidedLabel::setWholeText(const QString& text, const QString& more)
{
    const QString line = text.simplified();
    if (line == whole && more == moreThanWhole)
        return;
    whole = line;
    moreThanWhole = more;
    // The label tells screen readers of its name, but of its text only when it has none: they would
    // hear an old text once more when it goes.
    if (whole.isEmpty())
        clear();
    setAccessibleName(whole);
    setVisible(!whole.isEmpty());
    elide();
    updateGeometry();
}

QSize ElidedLabel::sizeHint() const
{
    const int width = qCeil(QFontMetricsF(font()).horizontalAdvance(whole));
    return QSize(width + 1, lineHeight(fontMetrics())).grownBy(contentsMargins());
}

int ElidedLabel::lineHeight(const QFontMetrics& metrics)
{
    const QRect endless(0, 0, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    return metrics.boundingRect(endless, 0, u"X"_s).height();
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void ElidedLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        elide();
        updateGeometry();
    }
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide()
{
    const QString shown = fontMetrics().elidedText(whole, Qt::ElideRight, contentsRect().width());
    if (shown != text())
        setText(shown);
    QString told = moreThanWhole;
    if (told.isEmpty() && shown != whole)
        told = whole;
    setToolTip(ToolTip::plain(told));
}
