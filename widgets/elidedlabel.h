// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

/// A line of plain text that may get less room than it needs: its end gives way then, and the tool
/// tip has the whole of it. Screen readers get the whole text in any case, and are told of a new
/// one. It takes no room while it is empty, and never makes a window wider.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// Shows the text in one line, with @p more in the tool tip if that is not empty.
    void setWholeText(const QString& text, const QString& more = {});

    /// The text whether or not there is room for it.
    [[nodiscard]] QString wholeText() const { return whole; }

    /// Of a line as it is painted, which rounding can make a pixel higher than the font says.
    [[nodiscard]] static int lineHeight(const QFontMetrics& metrics);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QString whole;
    QString moreThanWhole;
};
