// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Text in a rich-text field: what is read back is the same when it is set again.

#include "fuzz/fuzztarget.h"
#include "widgets/cleantextedit.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// Whether the characters themselves look like markup. Such text cannot stay the same, because
/// cleaned HTML is deliberately stored without escaping.
bool looksLikeMarkup(const QString& text)
{
    static const QRegularExpression markup(u"&|<[A-Za-z/!?]"_s);
    return text.contains(markup);
}

/// A raised or lowered run of white space only: HTML does not keep it apart from its neighbours.
bool hasBlankRun(const QString& html)
{
    static const QRegularExpression blank(u"<(su[bp])>\\s*</\\1>"_s,
                                          QRegularExpression::UseUnicodePropertiesOption);
    return html.contains(blank);
}

/// Neighbouring runs that differ in dropped formats have tags of their own; set again, they are one
/// run.
QString withNeighboursMerged(QString html)
{
    html.remove("</sub><sub>"_L1);
    html.remove("</sup><sup>"_L1);
    return html;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz::startApplication();
    static CleanTextEdit field;

    field.setCleanedHtml(QString::fromUtf8(Fuzz::bytes(data, size)));
    const QString first = withNeighboursMerged(field.cleanedHtml());
    const bool settled = !looksLikeMarkup(field.toPlainText()) && !hasBlankRun(first);
    field.setCleanedHtml(first);
    const QString second = field.cleanedHtml();
    Fuzz::require(!settled || second == first, "set, get, set, get: the same text");
    return 0;
}
