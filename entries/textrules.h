// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"
#include "entries/finding.h"

/// Rules about texts on their way through the editor.
namespace TextRules {

/// What becomes of a text once it has been shown in a field and taken from it again. A field of one
/// or of several lines makes no difference.
[[nodiscard]] QString asEdited(const QString& text);

void changedByEditor(const EntryFile& file, const Complain& complain);

} // namespace TextRules
