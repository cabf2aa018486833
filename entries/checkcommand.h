// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/console.h"

#include <QStringList>

/// "check": says what a curator would object to.
[[nodiscard]] ExitCode runCheckCommand(const QStringList& arguments, Console& console);
