// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/mainwindow.h"

#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

/// A scientist's visit, driven through the real window: an entry is opened, its fields and points
/// are edited, a spectrum is copied to another entry, everything is saved, opened again and
/// compared. On the way it takes pictures of what the user sees. The examples themselves are never
/// written to, and the user's settings are left alone.
class Tour
{
public:
    /// @p examples holds species files; pictures and saved copies go to @p output, made when
    /// missing.
    Tour(const QDir& examples, const QDir& output);

    /// Whether everything was found as it had been saved.
    [[nodiscard]] bool run();

    /// What was done and where the pictures are, line by line.
    [[nodiscard]] QStringList account() const;

private:
    [[nodiscard]] bool open(const QString& path);
    void editFields();
    void editPoints();
    void copySpectrumTo(const QString& otherEntry, const QString& copy);
    [[nodiscard]] bool isFoundAsSaved(const QString& path);
    void showBoxes();

    void trigger(const char* action);
    void saveAs(const QString& path);
    void typeInto(const char* field, const QString& text);
    void whenDialogOpens(const std::function<void(QWidget&)>& answer);
    void takePicture(QWidget& widget, const QString& name);

    QTemporaryDir settingsFolder;
    QDir examplesFolder;
    QDir outputFolder;
    QStringList told;
    MainWindow window;
};
