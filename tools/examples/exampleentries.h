// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonObject>
#include <QList>

/// A species file to be written.
struct ExampleEntry
{
    QString fileName;
    QString casNumber;
    QJsonObject content;
};

/// The example entries: species records from published figures and, for the diatomic molecules,
/// spectra computed from published spectroscopic constants. Nothing in them is measured here.
[[nodiscard]] QList<ExampleEntry> exampleEntries();
