// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QDragMoveEvent;
class QDropEvent;
class QWidget;

/// Accepts a drag of an entry, as a copy if that is offered, whatever is proposed.
void acceptEntryDrag(QDragMoveEvent* event);

/// Takes a dropped entry. Never as a move, after which the file manager would delete the file that
/// was just opened; where nothing else is offered the answer is that nothing was done to the file.
void acceptEntryDrop(QDropEvent* event);

/// Hands entry files that are dragged into any part of a window and dropped there to the window
/// itself; a text field would insert their address. On their way across the window they are
/// accepted here.
class EntryDrops : public QObject
{
    Q_OBJECT

public:
    /// Owned by @p receivingWindow and active as long as it lives.
    explicit EntryDrops(QWidget* receivingWindow);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* window;
};
