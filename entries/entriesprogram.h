// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// Runs the console program with all its arguments, the program's name first, and returns its exit
/// code.
[[nodiscard]] int runEntriesProgram(const QStringList& arguments);
