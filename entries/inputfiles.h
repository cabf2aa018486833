// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// The files that the arguments of a command name.
struct InputFiles
{
    QStringList paths;    ///< In the order of the arguments, those of a folder as they step.
    QStringList problems; ///< A sentence for each folder, or file in it, that could not be taken.

    /// Of a folder everything is taken that has the name of an entry and is no folder: what cannot
    /// be read is told later, and not left out without a word.
    [[nodiscard]] static InputFiles named(const QStringList& arguments);

    /// Whether a file that is to be written is one of them, whatever name it has been given.
    [[nodiscard]] bool contains(const QString& path) const;
};
