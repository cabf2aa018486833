// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/exportformats.h"
#include "entries/plaintext.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

void addComment(QByteArray& text, const char* name, const QString& value)
{
    const QString line = PlainText::inOneLine(value);
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
