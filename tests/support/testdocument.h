// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "spectrum/modifiabledocument.h"

#include <QJsonObject>
#include <QWidget>

class SpectrumWindow;

/// Stands in for the main window around spectrum windows: shows them and counts their changes.
class TestDocument : public QWidget, public ModifiableDocument
{
    Q_OBJECT
    Q_INTERFACES(ModifiableDocument)

public:
    TestDocument();

    void setModified() override;

    /// Adds a window for an empty dataset, or for the given one, below those already there; it is
    /// owned by the document.
    SpectrumWindow* add();
    SpectrumWindow* add(const QJsonObject& dataset);

    int modifications = 0;

private:
    SpectrumWindow* show(SpectrumWindow* window);
};
