// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/exportnames.h"

#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestName = 100;

/// Greek letters are the ones that chemists need: "α-pinene".
QString spelledOut(QChar letter)
{
    static const QStringList names =
        u"alpha beta gamma delta epsilon zeta eta theta iota kappa lambda mu nu xi omicron pi rho "
        "sigma sigma tau upsilon phi chi psi omega"_s.split(u' ');
    return names.value(letter.toLower().unicode() - 0x3b1);
}

bool isAsciiLetterOrDigit(QChar c)
{
    return c.unicode() < 128 && c.isLetterOrNumber();
}

/// Letters and digits in ASCII, everything else as single hyphens between them.
QString inAscii(const QString& name)
{
    QString result;
    // Compatible decomposition takes accents off letters and lowers digits that stand below.
    const QString decomposed = name.normalized(QString::NormalizationForm_KD);
    for (const QChar c : decomposed) {
        const bool isGreek = c.toLower() >= QChar(0x3b1) && c.toLower() <= QChar(0x3c9);
        if (isAsciiLetterOrDigit(c))
            result += c;
        else if (isGreek)
            result += spelledOut(c);
        else if (!c.isMark() && !result.isEmpty() && !result.endsWith(u'-'))
            result += u'-';
        if (result.size() >= longestName)
            break;
    }
    while (result.endsWith(u'-'))
        result.chop(1);
    return result.isEmpty() ? u"unnamed"_s : result;
}

} // namespace

ExportNames::ExportNames(QString fileSuffix)
    : suffix(std::move(fileSuffix))
{}

QString ExportNames::next(const QString& speciesName, int dataset)
{
    // With a number at its end no name is one of those that Windows keeps for devices.
    const QString name = inAscii(speciesName) + u'-' + QString::number(dataset);
    QString unique = name;
    // Thousands of species may have the same name, or none.
    int& number = lastNumbers[name.toLower()];
    while (given.contains(unique.toLower())) {
        number = std::max(number, 1) + 1;
        unique = name + u'-' + QString::number(number);
    }
    given.insert(unique.toLower());
    return unique + u'.' + suffix;
}
