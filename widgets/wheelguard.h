// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QWidget;

/// Lets the mouse wheel pass over a widget, such as a closed combo box, whose value it would change
/// by a slip; what is around the widget is scrolled instead.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    /// Owned by @p guarded and active as long as it lives.
    explicit WheelGuard(QWidget* guarded);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
