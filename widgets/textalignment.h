// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextCharFormat>

class QWidget;

/// Raising and lowering the selected characters of a text field.
namespace TextAlignment {

enum class Outcome { Changed, NoTextField, NoSelection };

/// Gives what is selected in @p field, if that is a text field, the alignment; or the normal one,
/// if the character before the cursor has this alignment already. The selection stays.
Outcome toggle(QWidget* field, QTextCharFormat::VerticalAlignment alignment);

} // namespace TextAlignment
