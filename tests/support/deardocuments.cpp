// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/dearfiles.h"

#include <algorithm>

namespace {

QByteArray file(const QByteArray& members)
{
    return R"({"Type": "Species v1", )" + members + '}';
}

/// "%" replaced by the number of each.
QByteArray listed(const QByteArray& member, int count)
{
    QByteArrayList members;
    for (int i = 0; i < count; ++i)
        members.append(QByteArray(member).replace("%", QByteArray::number(i)));
    return members.join(',');
}

QByteArray spectrum(const QByteArray& energies, const QByteArray& intensities,
                    const QByteArray& more = {})
{
    return file(R"("Dataset1": {"E": [)" + energies + R"(], "I": [)" + intensities + "]" + more +
                "}");
}

QByteArray nestedArrays(int depth)
{
    return file(R"("Species": )" + QByteArray(depth, '[') + QByteArray(depth, ']'));
}

QByteArray nestedObjects(int depth)
{
    return file(R"("Species": )" + QByteArray(R"({"a":)").repeated(depth) + '1' +
                QByteArray(depth, '}'));
}

QByteArray unknownKeys(int count)
{
    return file(R"("Species": {)" + listed(R"("key%": 0)", count) + '}');
}

QByteArray sameKey(int count)
{
    return file(R"("Species": {)" + listed(R"("Name": "%")", count) + '}');
}

QByteArray unknownMembers(int count)
{
    return file(listed(R"("member%": 0)", count));
}

QByteArray longKey(int length)
{
    return file(R"("Species": {")" + QByteArray(length, 'k') + R"(": 1})");
}

QByteArray escapes(int count)
{
    return file(R"("Species": {"Name": ")" + QByteArray("\\u0041").repeated(count) + R"("})");
}

QByteArray whiteSpace(int length)
{
    return file(R"("Species": {})" + QByteArray(length, '\n'));
}

QByteArray longNumbers(int digits)
{
    return spectrum(QByteArray(digits, '1'), "0." + QByteArray(digits, '1'));
}

QByteArray longMass(int digits)
{
    return file(R"("Species": {"MolMass": )" + QByteArray(digits, '9') + '}');
}

QByteArray arrayForText(int count)
{
    return file(R"("Species": {"Name": [)" + listed("%", count) + "]}");
}

QByteArray energiesAlone(int count)
{
    return spectrum(listed("%", count), "1");
}

QByteArray backAndForth(int count)
{
    return spectrum(QByteArray("0,5,1,9,2,8,3,7,4,6,").repeated(count / 10) + '1',
                    QByteArray("3,1,4,1,5,9,2,6,").repeated(count / 8) + '1');
}

QByteArray sticksBackAndForth(int count)
{
    return spectrum(QByteArray("0,5,1,9,2,8,3,7,4,6,").repeated(count / 10) + '1',
                    QByteArray("3,1,4,1,5,9,2,6,").repeated(count / 8) + '1',
                    R"(, "LineSpectrum": true)");
}

/// Elements of two bytes, each of which is a point.
QByteArray olderPoints(int count)
{
    return file(R"("Dataset1": {"Spectrum": [)" + QByteArray("1,").repeated(count - 1) + "1]}");
}

/// The dearest picture, which is given up, beside a text that costs much.
QByteArray pictureAndText(int length)
{
    constexpr int circles = 20'000;
    const auto drawing = std::find_if(
        DearFiles::drawings().begin(), DearFiles::drawings().end(),
        [](const auto& each) { return each.name == QByteArray("drawing/transparent circles"); });
    QByteArray bytes = drawing->make(circles);
    const QByteArray words = QByteArray("photoelectron ").repeated(length / 14);
    const QByteArray text = R"("Aliases": "<nobr>)" + words + '"';
    return bytes.replace(R"("Name": "x")", text);
}

QByteArray titles(int length)
{
    QByteArrayList spectra;
    for (int i = 1; i <= 200; ++i)
        spectra.append("\"Dataset" + QByteArray::number(i) + R"(": {"Title": ")" +
                       QByteArray("photoelectron ").repeated(length / 14) + R"("})");
    return file(spectra.join(','));
}

QByteArray longDate(int length)
{
    return file(R"("Dataset1": {"CreatedDate": ")" + QByteArray(length, '1') + R"("})");
}

QByteArray longCasNumber(int length)
{
    return file(R"("Species": {"CAS": ")" + QByteArray(length, '1') + R"("})");
}

} // namespace

namespace DearFiles {

const QList<Family>& documents()
{
    static const QList<Family> all{
        {"document/nested arrays", 1'400'000, nestedArrays},
        {"document/nested objects", 480'000, nestedObjects},
        {"document/unknown keys", 200'000, unknownKeys},
        {"document/same key", 170'000, sameKey},
        {"document/unknown members", 165'000, unknownMembers},
        {"document/long key", 2'900'000, longKey},
        {"document/escapes", 480'000, escapes},
        {"document/white space", 2'900'000, whiteSpace},
        {"document/long numbers", 1'400'000, longNumbers},
        {"document/long mass", 2'900'000, longMass},
        {"document/array for a text", 400'000, arrayForText},
        {"document/energies alone", 400'000, energiesAlone},
        {"document/back and forth", 700'000, backAndForth},
        {"document/sticks back and forth", 700'000, sticksBackAndForth},
        {"document/points of the older form", 1'400'000, olderPoints},
        {"document/picture and text", 2'600'000, pictureAndText},
        {"document/titles", 14'000, titles},
        {"document/long date", 2'900'000, longDate},
        {"document/long CAS number", 2'900'000, longCasNumber},
    };
    return all;
}

} // namespace DearFiles
