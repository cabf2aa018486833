// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tools/tour/visitor.h"

#include <QDir>
#include <QStringList>

/// A scientist's visit, driven through the real window: an entry is opened, its fields and points
/// are edited, a spectrum is copied to another entry, everything is saved, opened again and
/// compared. On the way it takes pictures of what the user sees. The examples themselves are never
/// written to.
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
    void editFields();
    void editPoints();
    void copySpectrumTo(const QString& otherEntry, const QString& copy);
    [[nodiscard]] bool isFoundAsSaved(const QString& path);
    void showBoxes();
    void takePicture(QWidget& widget, const QString& name);

    QDir examplesFolder;
    QDir outputFolder;
    QStringList told;
    Visitor visitor;
};
