// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/plaintext.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Characters, and in the same order what Unicode has in their place.
struct Script
{
    QString plain;
    QString shifted;
};

const Script& superscripts()
{
    static const Script script{u"0123456789+-\u2212=()abcdefghijklmnoprstuvwxyz"_s,
                               u"⁰¹²³⁴⁵⁶⁷⁸⁹⁺⁻⁻⁼⁽⁾ᵃᵇᶜᵈᵉᶠᵍʰⁱʲᵏˡᵐⁿᵒᵖʳˢᵗᵘᵛʷˣʸᶻ"_s};
    return script;
}

const Script& subscripts()
{
    static const Script script{u"0123456789+-\u2212=()aehijklmnoprstuvx"_s,
                               u"₀₁₂₃₄₅₆₇₈₉₊₋₋₌₍₎ₐₑₕᵢⱼₖₗₘₙₒₚᵣₛₜᵤᵥₓ"_s};
    return script;
}

QString shifted(const QString& run, const Script& script)
{
    QString result;
    for (const QChar c : run) {
        const qsizetype index = script.plain.indexOf(c);
        if (index < 0)
            return run;
        result += script.shifted.at(index);
    }
    return result;
}

} // namespace

namespace PlainText {

QString fromMarkedUp(const QString& markedUp)
{
    if (!markedUp.contains(u'<'))
        return markedUp;
    static const QRegularExpression tag(u"<(/?)(sub|sup|br)\\b[^<>]*>"_s);
    QString result;
    const Script* script = nullptr;
    qsizetype position = 0;
    const auto take = [&](qsizetype end) {
        const QString run = markedUp.sliced(position, end - position);
        result += script != nullptr ? shifted(run, *script) : run;
    };
    for (auto found = tag.globalMatch(markedUp); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        take(match.capturedStart());
        position = match.capturedEnd();
        if (match.capturedView(2) == "br"_L1)
            result += u'\n';
        else if (match.capturedLength(1) > 0)
            script = nullptr;
        else
            script = match.capturedView(2) == "sub"_L1 ? &subscripts() : &superscripts();
    }
    take(markedUp.size());
    return result;
}

QString inOneLine(const QString& markedUp)
{
    QStringList lines = fromMarkedUp(markedUp).split(u'\n');
    for (QString& line : lines)
        line = line.simplified();
    lines.removeAll(QString());
    return lines.join("; "_L1);
}

} // namespace PlainText
