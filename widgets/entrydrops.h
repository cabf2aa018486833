// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QWidget;

/// Hands entry files that are dragged onto any part of a window to the window itself; a text field
/// would insert their address.
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
