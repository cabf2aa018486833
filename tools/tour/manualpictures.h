// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tools/tour/visitor.h"

#include <QDir>
#include <QStringList>

#include <initializer_list>
#include <memory>

/// The pictures of the manual: the real windows, at work on the example entries as the manual tells
/// it. Apart from the versions of Qt and of the font, the same pictures come out each time.
class ManualPictures
{
public:
    /// @p examples holds the example entries; the pictures go to @p output, made when missing.
    ManualPictures(const QDir& examples, const QDir& output);

    /// Whether all pictures could be taken.
    [[nodiscard]] bool take();

    /// The names of the pictures, and what could not be done.
    [[nodiscard]] QStringList account() const;

private:
    void takeEntry();
    void takeFirstEntry();
    void takeSaveQuestion();
    void takeRaisedText();
    void takePointCommands();
    void takeThinning();
    void takeSticks();
    void takeZoom();
    void takeTypes();
    void takeStructure();
    void takeExchange();
    void takeDatabase();

    // What the person does
    void start();
    void open(const QString& example);
    void typeInto(const char* field, const QString& text);
    void fillSpecies();
    void addSpectrum();
    void fillSpectrum();
    void pastePoints(const QString& text);
    void click(const char* button);
    /// What was done to the point list is taken over after a while.
    void waitForPoints();

    // What the picture shows
    [[nodiscard]] QWidget& widget(const char* name) const;
    /// The smallest rectangle of the window around the widgets.
    [[nodiscard]] QRect around(std::initializer_list<const char*> names) const;
    [[nodiscard]] QRect aroundPoints() const;
    void save(const QPixmap& picture, const QString& name);
    /// The window or a part of it, and over it the menu that is open.
    void saveWindow(const QString& name, const QRect& area = {});

    QDir examplesFolder;
    QDir outputFolder;
    QStringList told;
    bool complete = true;
    std::unique_ptr<Visitor> visitor;
};
