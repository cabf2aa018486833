// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/formulareader.h"

#include "entries/atomicweights.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostAtoms = 100'000;
constexpr int deepestBrackets = 8;

/// Characters that stand for a lowered digit.
QString withPlainDigits(QString text)
{
    for (char16_t digit = 0; digit < 10; ++digit)
        text.replace(QChar(char16_t(u'\u2080' + digit)), QChar(char16_t(u'0' + digit)));
    return text.replace(QChar(0x2212), u'-');
}

/// Raised runs put into braces, all other tags and blanks removed.
QString simplified(const QString& markedUp)
{
    static const QRegularExpression raisedCharacters(u"[⁰¹²³⁴⁵⁶⁷⁸⁹⁺⁻]+"_s);
    static const QRegularExpression lowered(u"</?sub>"_s);
    static const QRegularExpression blanks(u"\\s"_s);
    static const QString raised = u"⁰¹²³⁴⁵⁶⁷⁸⁹⁺⁻"_s;
    static const QString plain = u"0123456789+-"_s;
    QString text = withPlainDigits(markedUp);
    for (auto match = raisedCharacters.match(text); match.hasMatch();
         match = raisedCharacters.match(text)) {
        QString run = match.captured();
        for (qsizetype i = 0; i < raised.size(); ++i)
            run.replace(raised.at(i), plain.at(i));
        text.replace(match.capturedStart(), match.capturedLength(), u'{' + run + u'}');
    }
    text.replace("<sup>"_L1, "{"_L1).replace("</sup>"_L1, "}"_L1);
    // Radical dots say nothing about atoms.
    return text.remove(lowered).remove(blanks).remove(u'•').remove(u'˙').replace("}{"_L1, ""_L1);
}

bool isAddition(QChar c)
{
    return c == u'.' || c == u'·' || c == u'⋅' || c == u'*';
}

void add(QMap<QString, int>& atoms, const QMap<QString, int>& more, int times)
{
    for (auto atom = more.begin(); atom != more.end(); ++atom)
        atoms[atom.key()] =
            std::min(mostAtoms, atoms[atom.key()] + std::min(*atom, mostAtoms) * times);
}

} // namespace

FormulaReader::FormulaReader(const QString& markedUp)
    : text(markedUp.contains(u'{') || markedUp.contains(u'}') ? QString() : simplified(markedUp))
{}

std::optional<Composition> FormulaReader::read()
{
    Composition composition;
    if (!readPart(composition))
        return {};
    while (isAddition(next())) {
        ++position;
        if (!readPart(composition))
            return {};
    }
    if (!atEnd() || composition.atoms.isEmpty())
        return {};
    return composition;
}

/// A number of at most four digits; 1 when there is none, nothing when it is too long.
std::optional<int> FormulaReader::readNumber()
{
    constexpr qsizetype mostDigits = 4;
    const qsizetype begin = position;
    while (next() >= u'0' && next() <= u'9')
        ++position;
    if (position == begin)
        return 1;
    if (position - begin > mostDigits)
        return {};
    return text.sliced(begin, position - begin).toInt();
}

bool FormulaReader::readPart(Composition& composition)
{
    const std::optional<int> times = readNumber();
    Atoms atoms;
    if (!times || !readGroups(atoms, composition.labelled, 0) || atoms.isEmpty())
        return false;
    add(composition.atoms, atoms, *times);
    if (next() == u'{')
        return readRaised(composition);
    return next() != u'+' && next() != u'-' ? true : readTrailingCharge(composition);
}

// Brackets stand in brackets, deepestBrackets at most.
// NOLINTNEXTLINE(misc-no-recursion)
bool FormulaReader::readGroups(Atoms& atoms, bool& labelled, int depth)
{
    while (!atEnd()) {
        if (isIsotopeAhead()) {
            labelled = true;
            position = text.indexOf(u'}', position) + 1;
        }
        if (next() == u'(' || next() == u'[') {
            if (!readBracket(atoms, labelled, depth))
                return false;
        } else if (next().isUpper()) {
            if (!readElement(atoms))
                return false;
        } else {
            break;
        }
    }
    return true;
}

// NOLINTNEXTLINE(misc-no-recursion)
bool FormulaReader::readBracket(Atoms& atoms, bool& labelled, int depth)
{
    const QChar closing = next() == u'(' ? u')' : u']';
    ++position;
    Atoms inner;
    if (depth >= deepestBrackets || !readGroups(inner, labelled, depth + 1) || next() != closing)
        return false;
    ++position;
    const std::optional<int> times = readNumber();
    if (!times || inner.isEmpty())
        return false;
    add(atoms, inner, *times);
    return true;
}

bool FormulaReader::readElement(Atoms& atoms)
{
    QString symbol = text.sliced(position++, 1);
    if (next().isLower())
        symbol += text.at(position++);
    const std::optional<int> count = readNumber();
    if (!count || !AtomicWeights::isElement(symbol))
        return false;
    add(atoms, {{symbol, *count}}, 1);
    return true;
}

bool FormulaReader::isIsotopeAhead() const
{
    static const QRegularExpression isotope(u"^\\{\\d{1,3}\\}[A-Z]"_s);
    return next() == u'{' && isotope.match(text.sliced(position)).hasMatch();
}

/// A charge: "{+}", "{2-}", "{+2}", "{++}".
bool FormulaReader::readRaised(Composition& composition)
{
    static const QRegularExpression charge(u"^\\{(?:(\\d?)([+-])|([+-])(\\d)|(\\++|-+))\\}"_s);
    const QRegularExpressionMatch match = charge.match(text.sliced(position));
    if (!match.hasMatch())
        return false;
    position += match.capturedLength();
    const QString digits = match.captured(1) + match.captured(4);
    const int size = match.capturedLength(5) > 0 ? int(match.capturedLength(5))
                     : digits.isEmpty()          ? 1
                                                 : digits.toInt();
    composition.charge += match.captured().contains(u'-') ? -size : size;
    return true;
}

/// A charge that is not raised, "NO+": only where no digit can be meant to belong to it ("SO42-").
bool FormulaReader::readTrailingCharge(Composition& composition)
{
    const auto isDigitAt = [this](qsizetype i) { return i >= 0 && text.at(i).isDigit(); };
    if (isDigitAt(position - 1) && isDigitAt(position - 2))
        return false;
    composition.charge += text.at(position++) == u'+' ? 1 : -1;
    return true;
}
