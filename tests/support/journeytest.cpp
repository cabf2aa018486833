// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/journeytest.h"

#include "widgets/cleantextedit.h"

#include <QAction>
#include <QApplication>
#include <QToolBar>

using namespace Qt::StringLiterals;

void JourneyTest::activate()
{
    QVERIFY(TestSupport::showActive(*window));
}

void JourneyTest::open(const QString& path, bool savesBefore)
{
    dialogs->expectFileDialog(u"Open Species JSON File"_s, path);
    if (savesBefore)
        dialogs->expectSaveQuestion(QMessageBox::Save);
    TestSupport::press(QKeySequence(u"Ctrl+O"_s));
    QVERIFY2(dialogs->passed(), dialogs->report().constData());
    activate();
}

void JourneyTest::clickTool(const char* actionName)
{
    const auto* toolBar = TestSupport::child<QToolBar>(*window, "toolBar");
    auto* action = TestSupport::child<QAction>(*window, actionName);
    QTest::mouseClick(toolBar->widgetForAction(action), Qt::LeftButton);
}

void JourneyTest::verifyDocument(const QString& title, const QString& species,
                                 const QStringList& spectra)
{
    QVERIFY2(dialogs->passed(), dialogs->report().constData());
    QCOMPARE(window->windowTitle(), "KORVELA Entry Edit - "_L1 + title);
    QCOMPARE(TestSupport::cell(*window, SpeciesModel::Name), species);
    QCOMPARE(TestSupport::spectrumTitles(*window), spectra);
}

SpectrumWindow& JourneyTest::firstSpectrum() const
{
    return *TestSupport::spectra(*window).constFirst();
}

namespace TestSupport {

CleanTextEdit* field(const QWidget& parent, const char* name)
{
    return child<CleanTextEdit>(parent, name);
}

QString shown(const QWidget& parent, const char* name)
{
    return field(parent, name)->cleanedHtml();
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void press(const QKeySequence& keys)
{
    QTest::keySequence(QApplication::focusWidget(), keys);
}

void fill(const QWidget& parent, const char* name, const QString& text)
{
    typeInto(*field(parent, name), text);
    press(Qt::Key_Tab);
}

void selectCharacter(int position)
{
    press(Qt::Key_Home);
    for (int i = 0; i < position; ++i)
        press(Qt::Key_Right);
    press(Qt::Key_Right, Qt::ShiftModifier);
}

} // namespace TestSupport
