// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QWidget;

/// Gives a window precedence over the fields inside it, for two kinds of input that text fields
/// would otherwise take for themselves: the shortcuts of the window's actions (on X11 desktops a
/// field takes Ctrl+D for "delete") and entry files dragged onto the window (a field would insert
/// their address).
class WindowPriority : public QObject
{
    Q_OBJECT

public:
    /// Owned by @p favouredWindow and active as long as it lives.
    explicit WindowPriority(QWidget* favouredWindow);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isInsideWindow(QObject* watched) const;

    QWidget* window;
};
