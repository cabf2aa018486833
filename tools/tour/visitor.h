// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/mainwindow.h"

#include <QTemporaryDir>

#include <chrono>
#include <functional>

class SpectrumWindow;

/// A person at the real main window, who works with its fields, actions and dialogs. The settings
/// of whoever runs the program are left alone.
class Visitor
{
public:
    Visitor();

    [[nodiscard]] MainWindow& window();

    /// Opens the entry through the dialog; whether it is open then.
    [[nodiscard]] bool open(const QString& path);
    /// Saves the entry under a new name through the dialog.
    void saveAs(const QString& path);

    void trigger(const char* action);

    static void typeInto(QWidget& field, const QString& text);
    /// Selects one character of a field of one line, counted from 0.
    static void selectCharacter(QWidget& field, int position);
    /// A field hands its text on when it loses the focus.
    void leaveFields();

    /// All spectra in the order in which they were opened; the active one.
    [[nodiscard]] QList<SpectrumWindow*> spectra() const;
    [[nodiscard]] SpectrumWindow& activeSpectrum() const;
    void activateSpectrum(int index);

    /// Names the files in an open file dialog and accepts it.
    static void chooseFiles(QWidget& dialog, const QString& names);

    /// Calls @p answer once a dialog or a menu is open; it has to close it.
    void whenOneOpens(const std::function<void(QWidget&)>& answer);

    static void letEventsPass(std::chrono::milliseconds time = std::chrono::milliseconds(100));

private:
    QTemporaryDir settingsFolder;
    MainWindow mainWindow;
};
