// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/console.h"

#include <QStringList>

/// "compile": entries into one database file, byte for byte as the editor's dialog does it.
[[nodiscard]] ExitCode runCompileCommand(const QStringList& arguments, Console& console);
