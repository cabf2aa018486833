// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class CreateDatabase;
class QWidget;

/// Compiles what the dialog has collected into a database and tells in message boxes how it went.
/// Returns whether the database was written.
bool compileDatabase(QWidget* messageParent, const CreateDatabase& choices);

/// The program that does nothing else: asks and compiles until there is a database; after a failure
/// the dialog comes back as it was. Returns the exit code of the program: EXIT_SUCCESS when the
/// database was created, EXIT_FAILURE after Cancel.
int runDatabaseProgram();
