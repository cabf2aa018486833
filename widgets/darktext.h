// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPalette>
#include <QWidget>

/// Makes the text of @p widget black on every desktop: for widgets whose style sheet gives them a
/// light background and leaves their text to the desktop's palette, which may be a dark one.
/// Widgets with a style sheet inherit no palette, so that each of them needs its own.
inline void setDarkText(QWidget& widget)
{
    QPalette palette = widget.palette();
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        palette.setColor(role, Qt::black);
    widget.setPalette(palette);
}
