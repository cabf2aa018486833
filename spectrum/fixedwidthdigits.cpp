// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/fixedwidthdigits.h"

#include <QEvent>
#include <QFontDatabase>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

FixedWidthDigits::FixedWidthDigits(QPlainTextEdit* pointList)
    : QObject(pointList)
    , list(pointList)
{
    list->installEventFilter(this);
    chooseFamily();
    keepWideEnough();
}

bool FixedWidthDigits::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationFontChange)
        chooseFamily();
    const bool handled = QObject::eventFilter(watched, event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::Polish)
        keepWideEnough();
    return handled;
}

void FixedWidthDigits::chooseFamily()
{
    // Nothing but the family, so that the list goes on following the size of its window.
    QFont font;
    font.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    list->setFont(font);
}

void FixedWidthDigits::keepWideEnough()
{
    list->setMinimumWidth(list->fontMetrics().horizontalAdvance(u"12.3456 1000.00"_s));
}
