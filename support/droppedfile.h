// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QMimeData;

/// The local file that the first URL of dragged data names, if its name ends in ".json" (in upper
/// or lower case); otherwise empty.
[[nodiscard]] QString droppedJsonFile(const QMimeData* data);
