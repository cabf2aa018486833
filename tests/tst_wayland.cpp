// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"

#include <QDockWidget>
#include <QGuiApplication>
#include <QStatusBar>
#include <QTest>
#include <QTextEdit>
#include <QWindow>

#include <memory>

using namespace TestSupport;
using namespace Qt::StringLiterals;

/// The window under a Wayland compositor, started by tests/smoke/onwayland. The compositor has no
/// mouse and no keyboard: nothing is clicked and no window is active. A drag comes from the
/// toolkit, which cannot start one there without a mouse.
class TestWayland : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != "wayland"_L1)
            QSKIP("runs under tests/smoke/onwayland only");
    }

    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        window = std::make_unique<MainWindow>();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    void cleanup()
    {
        window.reset();
        sandbox.reset();
    }

    void entryOpensWithItsSpectra()
    {
        const QString path =
            sandbox->write(u"a.json"_s, speciesFile(u"Water"_s, {u"one"_s, u"two"_s}));
        QVERIFY(window->openEntry(path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(spectrumTitles(*window), (QStringList{u"one"_s, u"two"_s}));
        for (const SpectrumWindow* spectrum : spectra(*window))
            QVERIFY(spectrum->isVisible());
    }

    void formFloatsAndDocksAgain()
    {
        auto* form = child<QDockWidget>(*window, "speciesDock");
        const auto* name = child<QTextEdit>(*window, "lineEditSpecies");
        QVERIFY(window->openEntry(sandbox->write(u"a.json"_s, speciesFile(u"Water"_s))));
        for (int round = 0; round < 3; ++round) {
            form->setFloating(true);
            QVERIFY(QTest::qWaitForWindowExposed(form));
            QVERIFY(form->isWindow());
            QVERIFY(!form->size().isEmpty());
            QCOMPARE(name->toPlainText(), u"Water"_s);

            form->setFloating(false);
            QTRY_VERIFY(!form->isWindow());
            QVERIFY(form->isVisible());
            QVERIFY(window->rect().contains(form->geometry()));
            QCOMPARE(name->toPlainText(), u"Water"_s);
        }
    }

    void entryDroppedOnTheWindowOpens()
    {
        const QString path = sandbox->write(u"a.json"_s, speciesFile(u"Water"_s, {u"one"_s}));
        QVERIFY(dropFile(*window, *window->statusBar(), path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(spectrumTitles(*window), QStringList{u"one"_s});
    }

    void entryDroppedOnTheFloatingFormOpens()
    {
        auto* form = child<QDockWidget>(*window, "speciesDock");
        form->setFloating(true);
        QVERIFY(QTest::qWaitForWindowExposed(form));
        const QString path = sandbox->write(u"a.json"_s, speciesFile(u"Water"_s));
        QVERIFY(dropFile(*form, *child<QWidget>(*form, "lineEditSpecies"), path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
    }

private:
    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<MainWindow> window;
};

QTEST_MAIN(TestWayland)
#include "tst_wayland.moc"
