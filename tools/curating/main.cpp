// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes up the twenty entries of docs/curating, with which curators practise. Five are wrong, each
// in another way. None of them is data, and each says so.

#include "support/wholefile.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int entryCount = 20;

QString energyOf(int number)
{
    return QString::number(9 + number / 20.0, 'f', 2);
}

/// A band of no meaning: ten points around the energy.
QJsonObject dataset(int number)
{
    QJsonArray energies;
    QJsonArray intensities;
    for (int i = 0; i < 10; ++i) {
        const double offset = (i - 4) / 50.0;
        energies.append(std::round((9 + number / 20.0 + offset) * 1000) / 1000);
        intensities.append(std::round(1000 * std::exp(-offset * offset * 200)));
    }
    return {{u"Title"_s, u"made up to practise with, not measured"_s},
            {u"Uploader"_s, u"korvela-curating"_s},
            {u"DOI"_s, QString()},
            {u"SpectType"_s, 3},
            {u"FurtherRefs"_s, QString()},
            {u"T"_s, QString()},
            {u"FurtherComments"_s, u"These points mean nothing."_s},
            {u"CreatedDate"_s, u"2026-11-21"_s},
            {u"FacilityDate"_s, QString()},
            {u"LineSpectrum"_s, false},
            {u"Source"_s, QString()},
            {u"Resolution"_s, QString()},
            {u"Normalization"_s, QString()},
            {u"E"_s, energies},
            {u"I"_s, intensities}};
}

QJsonObject species(int number)
{
    const double carbon = 12.011;
    const double hydrogen = 1.008;
    const int hydrogens = 2 * number + 2;
    const QString count = number == 1 ? QString() : QString::number(number);
    const QString carbons = count.isEmpty() ? u"C"_s : u"C<sub>%1</sub>"_s.arg(count);
    const QString formula = carbons + u"H<sub>%1</sub>"_s.arg(hydrogens);
    return {{u"Name"_s, u"practice species %1"_s.arg(number)},
            {u"Aliases"_s, QString()},
            {u"Mass"_s, std::round((number * carbon + hydrogens * hydrogen) * 1000) / 1000},
            {u"Formula"_s, formula},
            {u"InChI"_s, u"InChI=1S/C%1H%2"_s.arg(count).arg(hydrogens)},
            {u"CAS"_s, QString()},
            {u"PubChem"_s, QString()},
            {u"AIE"_s, energyOf(number)},
            {u"VIE"_s, QString()},
            {u"AIE_Comment"_s, u"made up"_s},
            {u"VIE_Comment"_s, QString()}};
}

/// The text of an entry. Five have a mistake as people make it.
QByteArray entryText(int number)
{
    QJsonObject theSpecies = species(number);
    QJsonObject theDataset = dataset(number);
    if (number == 5)
        theSpecies.insert(u"CAS"_s, u"58-08-3"_s); // wrong check digit
    if (number == 8)
        theSpecies.insert(u"AIE"_s, energyOf(number).replace(u'.', u',')); // decimal comma
    if (number == 11) {
        QJsonArray intensities = theDataset.value(u"I"_s).toArray();
        intensities.removeLast(); // a line was cut off in another program
        theDataset.insert(u"I"_s, intensities);
    }
    if (number == 14)
        theSpecies.insert(u"Mass"_s, species(number - 1).value(u"Mass"_s)); // of the neighbour
    const QJsonObject entry{
        {u"Type"_s, u"Species v1"_s}, {u"Species"_s, theSpecies}, {u"Dataset1"_s, theDataset}};
    const QByteArray text = QJsonDocument(entry).toJson();
    return number == 17 ? text.first(600) : text; // torn on its way
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream errors(stderr);
    if (QCoreApplication::arguments().size() != 2) {
        errors
            << "usage: korvela-curating <folder>\n"
               "Writes the entries to practise with into the folder, which is made if missing.\n";
        return 2;
    }
    const QDir folder(QCoreApplication::arguments().at(1));
    folder.mkpath(u"."_s);
    for (int number = 1; number <= entryCount; ++number) {
        WholeFile file(folder.filePath(u"practice-%1.json"_s.arg(number, 2, 10, QChar(u'0'))));
        file.write(entryText(number));
        if (file.commit() != WholeFile::Result::Written) {
            errors << "korvela-curating: cannot write into " << folder.path() << '\n';
            return 1;
        }
    }
    return 0;
}
