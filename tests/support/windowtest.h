// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/mainwindow.h"
#include "tests/support/dialogscript.h"
#include "tests/support/sandbox.h"

#include <QObject>

#include <memory>

/// Base of tests in which each function starts with a fresh sandbox, an empty clipboard and a new,
/// active main window, and ends with every expected dialog answered and the cursor given back.
class WindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

protected:
    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<DialogScript> dialogs;
    std::unique_ptr<MainWindow> window;
};
