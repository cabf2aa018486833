// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Whether @p text is a CAS registry number: one to seven digits, two digits and a check digit,
/// joined by hyphens. The check digit is the sum of the other digits, each weighted by its position
/// counted from the right, modulo 10 (the registry's published rule).
[[nodiscard]] bool isValidCasNumber(const QString& text);
