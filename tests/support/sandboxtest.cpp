// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/sandboxtest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

void SandboxTest::init()
{
    sandbox = std::make_unique<Sandbox>();
    dialogs = std::make_unique<DialogScript>();
    QGuiApplication::clipboard()->clear();
}

void SandboxTest::cleanup()
{
    const bool passed = dialogs->passed();
    const QByteArray report = dialogs->report();
    dialogs.reset();
    sandbox.reset();
    QVERIFY2(passed, report.constData());
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
}
