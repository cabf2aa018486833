// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/sandbox.h"

#include <QMdiArea>
#include <QTest>

/// The window as it comes up.
class TestStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titleIsBareUntilTheFirstChange()
    {
        const Sandbox sandbox;
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        QCOMPARE(window.windowTitle(), QStringLiteral("KORVELA Entry Edit"));
        window.createNewSpectrumWindow();
        QCOMPARE(window.windowTitle(), QStringLiteral("KORVELA Entry Edit - (untitled) *"));
    }
};

QTEST_MAIN(TestStart)
#include "tst_start.moc"
