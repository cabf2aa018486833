// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QScrollArea>

/// A form that may get less room than it needs: it is scrolled then, and whatever gets the focus by
/// keyboard is brought into view. With room enough nobody sees that it is there.
class FormScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit FormScrollArea(QWidget* parent = nullptr);

    /// Some lines of some words; where the horizontal scroll bar is switched off, as wide as the
    /// form and a scroll bar.
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// What the form would like, however small the area is now.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void followFocus();
    void showFocus(const QWidget* focus);
};
