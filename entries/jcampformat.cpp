// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/composition.h"
#include "entries/exportformats.h"
#include "entries/plaintext.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestLine = 80;

QByteArray number(double value)
{
    return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

/// Text that begins neither a comment ("$$") nor a record ("##").
QString harmless(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        if ((c == u'$' || c == u'#') && result.endsWith(c))
            result += u' ';
        result += c.isPrint() ? c : u' ';
    }
    return result;
}

/// Where to break a text that is longer than a line: at the last blank that fits, or else within
/// the word, but not within a character of two code units.
qsizetype breakOf(const QString& text, qsizetype most)
{
    const qsizetype blank = text.lastIndexOf(u' ', most);
    if (blank > 0)
        return blank;
    return text.at(most - 1).isHighSurrogate() ? most - 1 : most;
}

/// A labelled record, folded. Records of several words go on in the next line.
QByteArray record(const QString& label, const QString& value)
{
    QString rest = "##"_L1 + label + "= "_L1 + harmless(PlainText::inOneLine(value));
    QByteArray lines;
    while (rest.size() > longestLine) {
        const qsizetype end = breakOf(rest, longestLine);
        lines += rest.first(end).toUtf8() + '\n';
        rest = rest.sliced(end).trimmed();
        // A mark of its own line would begin a record.
        if (rest.startsWith("##"_L1))
            rest.prepend(u' ');
    }
    return lines + rest.trimmed().toUtf8() + '\n';
}

QByteArray recordOrNothing(const QString& label, const QString& value)
{
    return value.trimmed().isEmpty() ? QByteArray() : record(label, value);
}

QString orNotStated(const QString& text)
{
    return text.trimmed().isEmpty() ? u"not stated"_s : text;
}

QString titleOf(const ExportedDataset& dataset)
{
    QStringList parts{dataset.speciesName, dataset.title};
    parts.removeAll(QString());
    return orNotStated(parts.join(u", "_s));
}

/// As the standard wants it: symbols in the order of Hill, separated by blanks.
QString molecularFormula(const ExportedDataset& dataset)
{
    const auto composition = Compositions::fromSumFormula(dataset.formula);
    return composition ? composition->withoutIsotopes().hillFormula(u" "_s)
                       : PlainText::inOneLine(dataset.formula);
}

QByteArray head(const ExportedDataset& dataset)
{
    const bool isYield = dataset.spectrumType == "PIS"_L1;
    const QDate created = QDate::fromString(dataset.text("created"), u"yyyy-MM-dd"_s);
    QByteArray text = record(u"TITLE"_s, titleOf(dataset)) + record(u"JCAMP-DX"_s, u"5.01"_s);
    text += record(u"DATA TYPE"_s,
                   isYield ? u"PHOTOIONISATION SPECTRUM"_s : u"PHOTOELECTRON SPECTRUM"_s);
    text += record(u"DATA CLASS"_s, dataset.isLineSpectrum ? u"PEAK TABLE"_s : u"XYPOINTS"_s);
    text += record(u"ORIGIN"_s, orNotStated(dataset.text("facility")));
    text += record(u"OWNER"_s, orNotStated(dataset.text("uploader")));
    if (created.isValid())
        text += record(u"LONGDATE"_s, created.toString(u"yyyy/MM/dd"_s));
    const QStringList sources{dataset.text("doi"), dataset.text("references")};
    text += recordOrNothing(u"SOURCE REFERENCE"_s, sources.join(u'\n'));
    text += recordOrNothing(u"CAS REGISTRY NO"_s, dataset.text("cas"));
    text += recordOrNothing(u"MOLFORM"_s, molecularFormula(dataset));
    if (dataset.mass != 0)
        text += record(u"MW"_s, QString::fromLatin1(number(dataset.mass)));
    return text +
           recordOrNothing(u"NAMES"_s, dataset.text("name") + u'\n' + dataset.text("aliases"));
}

/// What the standard has no labels for stands under labels of our own.
QByteArray furtherRecords(const ExportedDataset& dataset)
{
    constexpr std::array names{"inchi",
                               "pubchem",
                               "aie",
                               "aie_comment",
                               "vie",
                               "vie_comment",
                               "temperature_k",
                               "source",
                               "resolution_mev",
                               "normalization",
                               "level_of_theory",
                               "convolution_fwhm_mev",
                               "transition_ev",
                               "comments"};
    QByteArray text = recordOrNothing(u"$SPECTRUM TYPE"_s, dataset.spectrumType);
    for (const char* name : names) {
        const QString label = QString::fromLatin1(name).toUpper().replace(u'_', u' ');
        text += recordOrNothing(u'$' + label, dataset.text(name));
    }
    return text;
}

QByteArray limits(const QList<double>& values, const char* axis)
{
    const auto [least, largest] = std::minmax_element(values.begin(), values.end());
    return QByteArray("##MAX") + axis + "= " + number(*largest) + "\n##MIN" + axis + "= " +
           number(*least) + '\n';
}

QByteArray table(const ExportedDataset& dataset)
{
    const QList<double>& energies = dataset.points.energies;
    const QList<double>& intensities = dataset.points.intensities;
    QByteArray text = "##XUNITS= eV\n##YUNITS= ARBITRARY UNITS\n##XFACTOR= 1\n##YFACTOR= 1\n";
    if (!energies.isEmpty()) {
        text += "##FIRSTX= " + number(energies.first()) + "\n##LASTX= " + number(energies.last()) +
                "\n##FIRSTY= " + number(intensities.first()) + '\n';
        text += limits(energies, "X") + limits(intensities, "Y");
    }
    text += "##NPOINTS= " + QByteArray::number(energies.size()) + '\n';
    text += dataset.isLineSpectrum ? "##PEAK TABLE= (XY..XY)\n" : "##XYPOINTS= (XY..XY)\n";
    for (qsizetype i = 0; i < energies.size(); ++i)
        text += number(energies.at(i)) + ", " + number(intensities.at(i)) + '\n';
    return text;
}

} // namespace

QByteArray ExportFormats::jcamp(const ExportedDataset& dataset)
{
    return head(dataset) + furtherRecords(dataset) + table(dataset) + "##END=\n";
}
