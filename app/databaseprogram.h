// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// Compiles one database in the dialogs of a main window that is never shown. Returns the exit code
/// of the program: EXIT_SUCCESS when the database was created, EXIT_FAILURE after a failure or
/// Cancel.
int runDatabaseProgram();
