// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"

#include <QList>

/// One dataset with what is said of its species, ready to be written in another format. Texts are
/// plain: see PlainText.
struct ExportedDataset
{
    /// A text under the name that all formats use for it.
    struct Field
    {
        const char* name = nullptr;
        QString text; ///< Lines are separated by line feeds.
    };

    QString file; ///< Name of the file that it comes from, without folder.
    int entry = 1;
    int number = 1;
    QString speciesName;
    QString title;
    QString spectrumType; ///< "TPES"; empty when the number means nothing.
    bool isLineSpectrum = false;
    double mass = 0;     ///< 0 when it is not known.
    QString formula;     ///< As typed, with its markup.
    QList<Field> fields; ///< All texts, those above included; empty ones, too.
    RecordedPoints points;

    [[nodiscard]] QString text(const char* name) const;

    /// All datasets of a file.
    [[nodiscard]] static QList<ExportedDataset> of(const EntryFile& file);
};
