// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QAction;
class QKeyEvent;
class QKeySequence;
class QWidget;

/// Gives the shortcuts of a window's actions precedence over the keys that the fields inside it
/// would take for themselves: on X11 desktops a text field takes Ctrl+D for "delete". Gives further
/// keys to actions whose shortcuts, or having none, people know.
class WindowShortcuts : public QObject
{
    Q_OBJECT

public:
    /// Owned by @p favouredWindow and active as long as it lives.
    explicit WindowShortcuts(QWidget* favouredWindow);

    /// Lets @p keys trigger the action, too, and tells them in its tool tip. They work even while
    /// the action is nowhere to be seen.
    void add(const QKeySequence& keys, QAction* action);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isShortcut(const QKeyEvent& event) const;

    QWidget* window;
};
