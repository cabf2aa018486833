// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "widgets/cleantextedit.h"

#include <memory>

class QScrollBar;

/// One-line rich-text field: looks and behaves like a line edit, but its characters can be raised
/// and lowered. It takes no line breaks from keys or pastes; long text scrolls sideways.
class SingleLineTextEdit : public CleanTextEdit
{
    Q_OBJECT

public:
    explicit SingleLineTextEdit(QWidget* parent = nullptr);
    ~SingleLineTextEdit() override;
    Q_DISABLE_COPY_MOVE(SingleLineTextEdit)

    /// Underlines the text quietly and says @p hint in the tool tip; an empty one ends that. The
    /// content does not change.
    void setHint(const QString& hint);
    [[nodiscard]] QString hint() const { return currentHint; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void startHeight();
    void adjustHeight();
    void underline();
    [[nodiscard]] QString toolTipText() const;

    QString currentHint;
    std::unique_ptr<QScrollBar> unseenHorizontalBar;
    std::unique_ptr<QScrollBar> unseenVerticalBar;
};
