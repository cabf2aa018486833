// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// How texts are made ready for the toolkit's HTML reader, so that it swallows nothing of them and
/// takes its time for none of them.
namespace HtmlReaderText {

/// See CleanedHtml::forHtmlReader().
[[nodiscard]] QString prepared(const QString& html, int mostPieces);

} // namespace HtmlReaderText
