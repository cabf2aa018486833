// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCursor>
#include <QGuiApplication>

/// Shows the wait cursor as long as it lives. End it before a message box or dialog opens: the
/// person would be asked to wait for their own answer.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(WaitCursor)
};

/// What @p work returns; the wait cursor is shown meanwhile.
template <typename Work>
auto whileWaiting(const Work& work)
{
    const WaitCursor waiting;
    return work();
}
