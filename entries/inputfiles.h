// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// The files that the arguments of a command name.
struct InputFiles
{
    QStringList paths;        ///< In the order of the arguments, those of a folder as they step.
    QStringList emptyFolders; ///< Folders without a JSON file.

    [[nodiscard]] static InputFiles named(const QStringList& arguments);
};
