// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/energytext.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

std::optional<EnergyText> EnergyText::parse(const QString& markedUp)
{
    static const QRegularExpression form(
        u"^\\s*(\\d{1,9}(?:\\.\\d{1,12})?)(?:\\s*±\\s*(\\d{1,9}(?:\\.\\d{1,12})?))?\\s*$"_s);
    const QRegularExpressionMatch match = form.match(markedUp);
    if (!match.hasMatch())
        return {};
    return EnergyText{match.captured(1).toDouble(), match.captured(2).toDouble()};
}

namespace Doi {

namespace {

const QRegularExpression& prefix()
{
    static const QRegularExpression expression(
        u"^\\s*(?:doi:\\s*|https?://(?:dx\\.|www\\.)?doi\\.org/)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return expression;
}

} // namespace

bool isDoi(const QString& text)
{
    // The registrants' numbers have four digits or more; what follows is the registrant's affair.
    // Older ones name pages in angle brackets: "13:13<1234::AID-RCM622>3.0.CO;2-X".
    static const QRegularExpression form(
        u"^10\\.\\d{4,9}(?:\\.\\d+)*/(?:[^\\s<>\"]|<\\d+:[^\\s<>\"]*>)+$"_s);
    return form.match(QString(text).remove(prefix()).trimmed()).hasMatch();
}

bool isMeantToBe(const QString& text)
{
    return prefix().match(text).hasMatch();
}

} // namespace Doi
