// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// File names in the order in which the user steps through a folder: numbers by their value
/// ("a2" before "a10") and letters regardless of case, the same under every locale.
[[nodiscard]] QStringList inSteppingOrder(QStringList fileNames);
