// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QTextDocument;

/// How much room a text may take.
namespace TextExtent {

/// Whether the lengths in the formats of a document (sizes of letters and pictures, margins,
/// indents, widths) may make it higher than the toolkit can count, which is 2^25 pixels: beyond
/// that its layout does not come to an end. It is not laid out for this, and must not have been.
[[nodiscard]] bool isBeyondLayout(const QTextDocument& document);

} // namespace TextExtent
