// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/dearfiles.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QByteArray file(const QJsonObject& species, const QJsonObject& dataset)
{
    return QJsonDocument(QJsonObject{{u"Type"_s, u"Species v1"_s},
                                     {u"Species"_s, species},
                                     {u"Dataset1"_s, dataset}})
        .toJson(QJsonDocument::Compact);
}

/// The text in a field of one line and in one of several.
QByteArray inFields(const QString& text)
{
    return file({{u"Name"_s, text}}, {{u"FurtherComments"_s, text}});
}

QByteArray lessThans(int count)
{
    return inFields(u"<"_s.repeated(count));
}

QByteArray keptTagsNeverClosed(int count)
{
    return inFields(u"<sub "_s.repeated(count));
}

QByteArray textStyleRules(int count)
{
    QString rules;
    for (int i = 0; i < count; ++i)
        rules += QString(".c%1{color:red}"_L1).arg(i);
    return inFields("<style>"_L1 + rules + "</style>"_L1 + u"<p class=c1>x"_s.repeated(900));
}

QByteArray unclosedStyle(int count)
{
    return inFields("<style>"_L1 + u"a{color:red}</x>"_s.repeated(count));
}

QByteArray linesInBold(int count)
{
    return inFields(u"<b>"_s.repeated(1000) + u"x<br>"_s.repeated(count));
}

QByteArray linesInDivisions(int count)
{
    return inFields(u"<div>"_s.repeated(1000) + u"x<br>"_s.repeated(count));
}

QByteArray lines(int count)
{
    return inFields(u"x<br>"_s.repeated(count));
}

QByteArray combiningMarks(int count)
{
    return inFields("e"_L1 + u"\u0301"_s.repeated(count));
}

QByteArray marksInWords(int count, int marksPerWord)
{
    const QString word = "e"_L1 + u"\u0301\u0327"_s.repeated(marksPerWord / 2) + u' ';
    return inFields(word.repeated(count / marksPerWord));
}

QByteArray someMarks(int count)
{
    return marksInWords(count, 80);
}

QByteArray manyMarks(int count)
{
    return marksInWords(count, 2000);
}

QByteArray tooManyMarks(int count)
{
    return marksInWords(count, 2500);
}

QByteArray pictures(int count)
{
    return inFields(QString(u"words "_s.repeated(160) + "<img src=\"a\">"_L1).repeated(count));
}

QByteArray joiners(int count)
{
    return inFields(u"\U0001F469\u200d"_s.repeated(count));
}

QByteArray raisedRuns(int count)
{
    return inFields(u"C<sub>2</sub>H<sup>+</sup>"_s.repeated(count));
}

QByteArray oneWord(int count)
{
    return inFields(u"a"_s.repeated(count));
}

QByteArray directions(int count)
{
    return inFields(u"\u202b\u05d0\u202aa"_s.repeated(count));
}

QByteArray longTitle(int count)
{
    return file({}, {{u"Title"_s, u"photoelectron "_s.repeated(count / 14)}});
}

QByteArray attributes(int count)
{
    return inFields("<span style=\""_L1 + u"color:red;"_s.repeated(count) + "\">x</span>"_L1);
}

QByteArray emptyLines(int count)
{
    return inFields(u"<br>"_s.repeated(count));
}

QByteArray points(int count)
{
    QJsonArray energies;
    QJsonArray intensities;
    for (int i = 0; i < count; ++i) {
        energies.append(i % 1000);
        intensities.append(i % 7);
    }
    return file({}, {{u"E"_s, energies}, {u"I"_s, intensities}});
}

QByteArray wildPoints(int count)
{
    QJsonArray energies;
    QJsonArray intensities;
    for (int i = 0; i < count; ++i) {
        energies.append(i % 2 == 0 ? 1e300 : -1e300);
        intensities.append(i % 3 == 0 ? 1e-300 : 1e308);
    }
    return file({}, {{u"E"_s, energies}, {u"I"_s, intensities}});
}

QByteArray datasets(int count)
{
    QJsonObject all{{u"Type"_s, u"Species v1"_s}};
    for (int i = 1; i <= count; ++i) {
        all.insert(QString("Dataset%1"_L1).arg(i),
                   QJsonObject{{u"Title"_s, QString("Spectrum %1"_L1).arg(i)}});
    }
    return QJsonDocument(all).toJson();
}

} // namespace

namespace DearFiles {

const QList<Family>& texts()
{
    static const QList<Family> all{
        {"text/less-thans", 1'450'000, lessThans},
        {"text/kept tags never closed", 290'000, keptTagsNeverClosed},
        {"text/style rules", 80'000, textStyleRules},
        {"text/unclosed style", 60'000, unclosedStyle},
        {"text/lines in bold", 290'000, linesInBold},
        {"text/lines in divisions", 290'000, linesInDivisions},
        {"text/lines", 290'000, lines},
        {"text/empty lines", 360'000, emptyLines},
        {"text/combining marks", 700'000, combiningMarks},
        {"text/some marks a letter", 300'000, someMarks},
        {"text/many marks a letter", 300'000, manyMarks},
        {"text/too many marks a letter", 300'000, tooManyMarks},
        {"text/pictures", 1'500, pictures},
        {"text/joiners", 200'000, joiners},
        {"text/raised runs", 55'000, raisedRuns},
        {"text/one word", 1'450'000, oneWord},
        {"text/directions", 160'000, directions},
        {"text/long title", 2'900'000, longTitle},
        {"text/attributes", 140'000, attributes},
        {"amount/points", 400'000, points},
        {"amount/wild points", 200'000, wildPoints},
        {"amount/datasets", 200, datasets},
    };
    return all;
}

} // namespace DearFiles
