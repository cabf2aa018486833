// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/exportformats.h"
#include "entries/plaintext.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// A spreadsheet takes commas and semicolons in a comment for the ends of cells. What stands behind
/// them must begin no formula, nor a quotation that would swallow the lines below.
QString harmless(QString text)
{
    static const QRegularExpression beginning(u"([,;])(?=[\"'=+@-])"_s);
    return text.replace(beginning, u"\\1 "_s);
}

void addComment(QByteArray& text, const char* name, const QString& value)
{
    const QString line = harmless(PlainText::inOneLine(value));
    if (!line.isEmpty())
        text += QByteArray("# ") + name + ": " + line.toUtf8() + '\n';
}

QByteArray number(double value)
{
    return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

} // namespace

QByteArray ExportFormats::csv(const ExportedDataset& dataset)
{
    QByteArray text;
    if (dataset.mass != 0)
        addComment(text, "mass_amu", QString::fromLatin1(number(dataset.mass)));
    addComment(text, "spectrum_type", dataset.spectrumType);
    addComment(text, "line_spectrum", dataset.isLineSpectrum ? u"yes"_s : u"no"_s);
    for (const ExportedDataset::Field& field : dataset.fields)
        addComment(text, field.name, field.text);
    text += "photon_energy_eV,intensity\n";
    for (qsizetype i = 0; i < dataset.points.energies.size(); ++i) {
        text += number(dataset.points.energies.at(i)) + ',' +
                number(dataset.points.intensities.at(i)) + '\n';
    }
    return text;
}
