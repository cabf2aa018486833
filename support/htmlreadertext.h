// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// How texts are made ready for the toolkit's HTML reader, so that it swallows nothing of them and
/// takes its time for none of them.
namespace HtmlReaderText {

struct Prepared
{
    QString html;
    /// Whether the text has other markup than line breaks and raised and lowered characters.
    bool isFormatted = false;
    /// What is not laid out of the text; a picture at the end stands for it when it is not empty.
    QString rest;
};

/// See CleanedHtml::forHtmlReader().
[[nodiscard]] Prepared prepared(const QString& html, int mostPieces);

/// The same without such other markup.
[[nodiscard]] Prepared unformatted(const QString& html, int mostPieces);

} // namespace HtmlReaderText
