// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QTest>

#include <initializer_list>

class CleanTextEdit;

/// Base of tests that go a long way with one window, as a person does in hours of work. Each test
/// function is one journey, told as the list of its steps.
class JourneyTest : public WindowTest
{
    Q_OBJECT

protected:
    /// Takes the steps in their order, and none behind one that fails.
    template <typename Test>
    void go(std::initializer_list<void (Test::*)()> steps)
    {
        for (const auto step : steps) {
            (static_cast<Test*>(this)->*step)();
            if (QTest::currentTestFailed())
                return;
        }
    }

    /// Makes the window active again, which it is not behind a dialog.
    void activate();

    /// Opens the entry with keys and a dialog; a modified one before it is saved when asked.
    void open(const QString& path, bool savesBefore = false);

    /// Clicks the button of the tool bar.
    void clickTool(const char* actionName);

    /// What the window and the models hold: title without the program's name, name of the species,
    /// titles of the spectra. All dialogs so far must have come as expected.
    void verifyDocument(const QString& title, const QString& species, const QStringList& spectra);

    [[nodiscard]] SpectrumWindow& firstSpectrum() const;
};

namespace TestSupport {

/// The field, and its text as the file would have it.
[[nodiscard]] CleanTextEdit* field(const QWidget& parent, const char* name);
[[nodiscard]] QString shown(const QWidget& parent, const char* name);

/// Presses keys where the focus is.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void press(const QKeySequence& keys);

/// Types over the field's text and leaves the field with Tab.
void fill(const QWidget& parent, const char* name, const QString& text);

/// Selects the character @p position, counted from 0, of the field with the focus, which holds one
/// line.
void selectCharacter(int position);

} // namespace TestSupport
