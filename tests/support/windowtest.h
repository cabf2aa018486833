// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/mainwindow.h"
#include "tests/support/sandboxtest.h"

/// Base of tests in which each function starts with a new, active main window besides.
class WindowTest : public SandboxTest
{
    Q_OBJECT

protected Q_SLOTS:
    void init() override;
    void cleanup() override;

protected:
    std::unique_ptr<MainWindow> window;
};
