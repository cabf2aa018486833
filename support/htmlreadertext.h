// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// How texts are made ready for the toolkit's HTML reader, so that it swallows nothing of them and
/// takes its time for none of them.
namespace HtmlReaderText {

/// See CleanedHtml::forHtmlReader().
[[nodiscard]] QString prepared(const QString& html);

/// The combining marks for which a picture of this name stands in a document; empty for any other
/// name. A letter shows the marks that it can carry. The rest would be laid out and painted one
/// over the other at every repaint, so the reader gets them as the name of one empty picture.
[[nodiscard]] QString marksOfPicture(const QString& name);

} // namespace HtmlReaderText
