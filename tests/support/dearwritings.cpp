// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/dearfiles.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// As many as a file of 3 MB can have.
constexpr int mostDatasets = 200;

/// A file of that many kilobytes in one field, or in each field of the spectra.
QByteArray inOneField(const char* key, const QString& unit, int kilobytes,
                      const QString& beginning = {})
{
    const auto count = 1000 * kilobytes / unit.toUtf8().size();
    const QString text = beginning + unit.repeated(count);
    const QJsonObject species{{QString::fromLatin1(key), text}};
    return QJsonDocument(QJsonObject{{u"Type"_s, u"Species v1"_s}, {u"Species"_s, species}})
        .toJson();
}

QByteArray inEverySpectrum(const QString& unit, int kilobytes)
{
    constexpr std::array keys{"Title", "Uploader", "DOI", "FurtherRefs", "FurtherComments", "T"};
    const auto count = 1000 * kilobytes /
                       (unit.toUtf8().size() * mostDatasets * static_cast<qsizetype>(keys.size()));
    QJsonObject spectrum;
    for (const char* key : keys)
        spectrum.insert(QString::fromLatin1(key), unit.repeated(count));
    QJsonObject file{{u"Type"_s, u"Species v1"_s}};
    for (int i = 1; i <= mostDatasets; ++i)
        file.insert(QString("Dataset%1"_L1).arg(i), spectrum);
    return QJsonDocument(file).toJson();
}

// Texts in which every few characters are laid out apart from the next ones.
const QString manyWritings = u"a\u03b1\u044f\u05d0\u6c34\u0e01"_s;
const QString mixed = u"a\u05d01 "_s;
const QString overrides = u"\u202e\u05d0\u202ca"_s;
const QString isolates = u"\u2067a\u2069 "_s;
const QString directionMarks = u"\u200e\u200f"_s;
const QString family = u"\U0001F468\u200d\U0001F469\u200d\U0001F467 "_s;
const QString flags = u"\U0001F1E9"_s;
const QString keycaps = u"1\ufe0f\u20e3"_s;
const QString widthless = u"a\u200b\u00ad"_s;
const QString separators = u"x\u2028\u2029"_s;
const QString marks = u"e\u0301\u0327 "_s;
const QString noBreaks = u"a\u00a0"_s;
const QString longWords = QString(u"x"_s.repeated(1999) + u' ');
const QString tabs = u"a\t"_s;
const QString symbols = u"a\u2192"_s;
const QString lines = u"x<br>"_s;
const QString cells = u"<table><tr><td>x"_s;
const QString bold = u"<b>x<br>"_s;
const QString lists = u"<ul><li>x"_s;
const QString raised = u"C<sub>2</sub>H<sup>+</sup>"_s;
const QString numbers = u"&#x5d0;&rlm;a"_s;
const QString pictures =
    u"<img src=\"data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42m"
    "NkYPhfDwAChwGA60e6kgAAAABJRU5ErkJggg==\">"_s;
const QString styled = u"<span style=\"color:red;font-size:99px\">x</span>"_s;

const QString largeLetters = uR"(<span style="font-size:300px">)"_s;
const QString quotations = u"<blockquote>"_s.repeated(900);
const QString unbroken = u"<nobr>"_s;

/// Words that are all in the same markup.
template <const QString& beginning>
QByteArray words(int kilobytes)
{
    return inOneField("Aliases", u"photoelectron "_s, kilobytes, beginning);
}

QByteArray cellsOfManyColumns(int columns)
{
    const QString number = QString::number(columns);
    const QString cell = "<table><tr><td colspan="_L1 + number + " rowspan="_L1 + number + ">x"_L1;
    constexpr int kilobytes = 80;
    return inEverySpectrum(cell, kilobytes);
}

template <const QString& unit>
QByteArray name(int kilobytes)
{
    return inOneField("Name", unit, kilobytes);
}

template <const QString& unit>
QByteArray aliases(int kilobytes)
{
    return inOneField("Aliases", unit, kilobytes);
}

template <const QString& unit>
QByteArray everywhere(int kilobytes)
{
    return inEverySpectrum(unit, kilobytes);
}

} // namespace

namespace DearFiles {

const QList<Family>& writings()
{
    constexpr int kilobytes = 2900;
    static const QList<Family> all{
        {"writing/many", kilobytes, aliases<manyWritings>},
        {"writing/mixed", kilobytes, name<mixed>},
        {"writing/overrides", kilobytes, aliases<overrides>},
        {"writing/isolates", kilobytes, name<isolates>},
        {"writing/direction marks", kilobytes, aliases<directionMarks>},
        {"writing/joined emoji", kilobytes, aliases<family>},
        {"writing/flags", kilobytes, aliases<flags>},
        {"writing/keycaps", kilobytes, aliases<keycaps>},
        {"writing/without width", kilobytes, aliases<widthless>},
        {"writing/separators", kilobytes, aliases<separators>},
        {"writing/marks on letters", kilobytes, aliases<marks>},
        {"writing/no breaks", kilobytes, aliases<noBreaks>},
        {"writing/long words", kilobytes, aliases<longWords>},
        {"writing/tabs", kilobytes / 2, name<tabs>},
        {"writing/symbols", kilobytes, aliases<symbols>},
        {"writing/numbers", kilobytes, aliases<numbers>},
        {"markup/lines", kilobytes, aliases<lines>},
        {"markup/tables", kilobytes, aliases<cells>},
        {"markup/bold lines", kilobytes, aliases<bold>},
        {"markup/lists", kilobytes, name<lists>},
        {"markup/raised", kilobytes, name<raised>},
        {"markup/pictures", kilobytes, aliases<pictures>},
        {"markup/styled", kilobytes - 100, aliases<styled>},
        {"markup/large letters", kilobytes, words<largeLetters>},
        {"markup/nested quotations", kilobytes - 20, words<quotations>},
        {"markup/unbroken words", kilobytes, words<unbroken>},
        {"markup/cells of many columns", 1000, cellsOfManyColumns},
        {"everywhere/mixed", kilobytes, everywhere<mixed>},
        {"everywhere/lines", kilobytes, everywhere<lines>},
        {"everywhere/tables", kilobytes, everywhere<cells>},
        {"everywhere/bold lines", kilobytes, everywhere<bold>},
        {"everywhere/raised", kilobytes, everywhere<raised>},
    };
    return all;
}

} // namespace DearFiles
