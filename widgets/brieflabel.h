// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

/// A label that lays out the beginning of a long text only; its end would be beside every screen.
/// Has no meta-object of its own: it is a label to whoever asks.
class BriefLabel : public QLabel
{
public:
    using QLabel::QLabel;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] bool isLong() const;
    [[nodiscard]] QString beginning() const;
};
