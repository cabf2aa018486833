// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QUrl>

/// Address of the colour structure drawing that the NIST Chemistry WebBook keeps for the substance
/// with the given CAS registry number, written without hyphens.
[[nodiscard]] QUrl structureImageUrl(const QString& casDigits);
