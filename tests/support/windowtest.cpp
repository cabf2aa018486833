// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/windowtest.h"

#include <QTest>

void WindowTest::init()
{
    SandboxTest::init();
    window = std::make_unique<MainWindow>();
    QVERIFY(TestSupport::showActive(*window));
}

void WindowTest::cleanup()
{
    window.reset();
    SandboxTest::cleanup();
}
