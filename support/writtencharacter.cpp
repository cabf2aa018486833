// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/writtencharacter.h"

#include <QLatin1StringView>
#include <QString> // what views of it say of each other

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

WrittenCharacter numericReference(QStringView text)
{
    constexpr qsizetype longest = 12;
    const qsizetype end = text.first(std::min(text.size(), longest)).indexOf(u';');
    if (end < 3 || text.at(1) != u'#')
        return {};
    const bool isHexadecimal = text.at(2).toLower() == u'x';
    const QStringView digits = text.first(end).sliced(isHexadecimal ? 3 : 2);
    bool isNumber = false;
    const uint number = digits.toUInt(&isNumber, isHexadecimal ? 16 : 10);
    if (!isNumber || number > QChar::LastValidCodePoint)
        return {};
    return {number, end + 1};
}

} // namespace

WrittenCharacter WrittenCharacter::first(QStringView text)
{
    const QChar c = text.front();
    if (c == u'&')
        return numericReference(text);
    if (c.isHighSurrogate() && text.size() > 1 && text.at(1).isLowSurrogate())
        return {QChar::surrogateToUcs4(c, text.at(1)), 2};
    return {c.unicode(), 1};
}

bool WrittenCharacter::isMark() const
{
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
        return true;
    default:
        return false;
    }
}

bool WrittenCharacter::isPiece() const
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QChar::Script WrittenCharacter::writing() const
{
    constexpr char32_t firstSymbol = 0x2190;
    const QChar::Script script = QChar::script(character);
    const bool isAnywhere = script == QChar::Script_Common && character < firstSymbol;
    return isAnywhere ? QChar::Script_Inherited : script;
}

bool isUnusualReference(QStringView text)
{
    static constexpr std::array usual{"amp;"_L1, "lt;"_L1, "gt;"_L1, "quot;"_L1, "nbsp;"_L1};
    const QStringView name = text.sliced(1);
    return !name.isEmpty() && isAsciiLetter(name.front()) &&
           std::none_of(usual.begin(), usual.end(),
                        [name](QLatin1StringView each) { return name.startsWith(each); });
}
