// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/windowtest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

void WindowTest::init()
{
    sandbox = std::make_unique<Sandbox>();
    dialogs = std::make_unique<DialogScript>();
    window = std::make_unique<MainWindow>();
    QGuiApplication::clipboard()->clear();
    QVERIFY(TestSupport::showActive(*window));
}

void WindowTest::cleanup()
{
    const bool passed = dialogs->passed();
    const QByteArray report = dialogs->report();
    window.reset();
    dialogs.reset();
    sandbox.reset();
    QVERIFY2(passed, report.constData());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}
