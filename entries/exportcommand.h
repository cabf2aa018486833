// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/console.h"

#include <QStringList>

/// "export": datasets for other programs.
[[nodiscard]] ExitCode runExportCommand(const QStringList& arguments, Console& console);
