// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "database/databasefile.h"

class CreateDatabase;
class QWidget;

/// Compiling databases for people: what goes wrong, and what went well, is shown in message boxes.
namespace DatabaseProgram {

/// As DatabaseFile::write(), with a box about a species file that cannot be used. Returns how
/// saving went: not opened, too, when it did not come to that.
SaveResult write(QWidget* messageParent, const QString& target, const DatabaseFile::Header& header,
                 const QStringList& sources, QJsonDocument::JsonFormat format);

/// Compiles what the dialog has collected, dated today.
SaveResult write(QWidget* messageParent, const CreateDatabase& choices);

/// Tells in the end whether there is a database. That a device failed later is deliberately no
/// failure.
void showWhetherWritten(QWidget* messageParent, SaveResult result);

/// The program that does nothing else: asks and compiles until there is a database; after a failure
/// the dialog comes back as it was. Returns the exit code of the program: EXIT_SUCCESS when the
/// database was created, EXIT_FAILURE after Cancel.
int run();

} // namespace DatabaseProgram
