// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCursor>
#include <QGuiApplication>
#include <QList>

/// Shows the wait cursor as long as it lives: one for each command that can take long.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(WaitCursor)
};

/// Takes every wait cursor away as long as it lives. For what asks in the middle of a command:
/// nobody is to be told to wait for their own answer.
class SuspendedWaitCursor
{
public:
    SuspendedWaitCursor()
    {
        while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
            suspended.prepend(*cursor);
            QGuiApplication::restoreOverrideCursor();
        }
    }
    ~SuspendedWaitCursor()
    {
        for (const QCursor& cursor : suspended)
            QGuiApplication::setOverrideCursor(cursor);
    }
    Q_DISABLE_COPY_MOVE(SuspendedWaitCursor)

private:
    QList<QCursor> suspended;
};
