// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/spectrumrules.h"

#include "entries/energytext.h"
#include "entries/jsonpointer.h"
#include "entries/significantdigits.h"

#include <QDate>
#include <QDateTime>
#include <QJsonArray>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

using Look = std::function<void(const PlacedSpectrum&)>;

void forEachSpectrum(const EntryFile& file, const Look& look)
{
    for (const PlacedEntry& entry : file.entries) {
        for (const PlacedSpectrum& spectrum : entry.spectra)
            look(spectrum);
    }
}

void forEachWithPoints(const EntryFile& file, const Look& look)
{
    forEachSpectrum(file, [&look](const PlacedSpectrum& spectrum) {
        if (spectrum.points.complete && !spectrum.points.energies.isEmpty())
            look(spectrum);
    });
}

bool hasOlderPoints(const PlacedSpectrum& spectrum)
{
    return spectrum.record.contains("Spectrum"_L1);
}

/// The place of one coordinate ("E" or "I") of a point, in either form of the points.
QString placeOf(const PlacedSpectrum& spectrum, QLatin1StringView axis, qsizetype index)
{
    if (!hasOlderPoints(spectrum))
        return JsonPointer::element(JsonPointer::member(spectrum.place, axis), index);
    const QString points = JsonPointer::member(spectrum.place, u"Spectrum"_s);
    return JsonPointer::member(JsonPointer::element(points, index), axis);
}

QString placeOf(const PlacedSpectrum& spectrum, QLatin1StringView key)
{
    return JsonPointer::member(spectrum.place, hasOlderPoints(spectrum) ? "Spectrum"_L1 : key);
}

QString number(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

struct Deviants
{
    qsizetype first = -1;
    qsizetype count = 0;

    void take(qsizetype index)
    {
        if (first < 0)
            first = index;
        ++count;
    }
};

QString ofSoMany(const Deviants& deviants, qsizetype all)
{
    return u" (%1 of %2)"_s.arg(deviants.count).arg(all);
}

/// The last day that has begun anywhere on earth, which is up to 14 hours ahead.
QDate latestToday()
{
    return QDateTime::currentDateTimeUtc().addSecs(qint64{14} * 3600).date();
}

QDate createdOn(const PlacedSpectrum& spectrum)
{
    return QDate::fromString(spectrum.record.value("CreatedDate"_L1).toString(), u"yyyy-MM-dd"_s);
}

/// Whether all steps of ascending energies are the same, within what rounding makes of them.
bool isEvenlySpaced(const QList<double>& energies)
{
    const double range = energies.last() - energies.first();
    const double step = range / double(energies.size() - 1);
    const double rounding = 2e-5 * std::abs(energies.last());
    for (qsizetype i = 1; i < energies.size(); ++i) {
        if (std::abs(energies.at(i) - energies.at(i - 1) - step) > 0.1 * step + rounding)
            return false;
    }
    return range > 0;
}

} // namespace

namespace SpectrumRules {

void pointsLength(const EntryFile& file, const Complain& complain)
{
    forEachSpectrum(file, [&](const PlacedSpectrum& spectrum) {
        const QJsonValue energies = spectrum.record.value("E"_L1);
        const QJsonValue intensities = spectrum.record.value("I"_L1);
        const qsizetype energyCount = energies.toArray().size();
        const qsizetype intensityCount = intensities.toArray().size();
        if (!hasOlderPoints(spectrum) && energies.isArray() && intensities.isArray() &&
            energyCount != intensityCount) {
            complain(spectrum.place,
                     u"There are %1 energies and %2 intensities, so that no points are read; "
                     "expected are as many of both."_s.arg(energyCount)
                         .arg(intensityCount));
        }
    });
}

void pointsNull(const EntryFile& file, const Complain& complain)
{
    forEachSpectrum(file, [&](const PlacedSpectrum& spectrum) {
        for (const auto axis : {"E"_L1, "I"_L1}) {
            const QJsonArray numbers = spectrum.record.value(axis).toArray();
            Deviants nulls;
            for (qsizetype i = 0; i < numbers.size() && !hasOlderPoints(spectrum); ++i) {
                if (numbers.at(i).isNull())
                    nulls.take(i);
            }
            if (nulls.count > 0) {
                complain(placeOf(spectrum, axis, nulls.first),
                         u"This is null, which is read as 0; expected is a number"_s +
                             ofSoMany(nulls, numbers.size()) + u'.');
            }
        }
    });
}

void fewPoints(const EntryFile& file, const Complain& complain)
{
    forEachSpectrum(file, [&](const PlacedSpectrum& spectrum) {
        const qsizetype count = spectrum.points.energies.size();
        if (spectrum.points.complete && count < 3) {
            complain(placeOf(spectrum, "E"_L1),
                     u"The spectrum has %1 points; expected are at least 3."_s.arg(count));
        }
    });
}

void energiesOrder(const EntryFile& file, const Complain& complain)
{
    forEachWithPoints(file, [&](const PlacedSpectrum& spectrum) {
        const QList<double>& energies = spectrum.points.energies;
        Deviants falling;
        for (qsizetype i = 1; i < energies.size(); ++i) {
            if (energies.at(i) < energies.at(i - 1))
                falling.take(i);
        }
        if (falling.count > 0) {
            complain(
                placeOf(spectrum, "E"_L1, falling.first),
                u"The energy %1 stands behind %2; expected are ascending energies"_s.arg(
                    number(energies.at(falling.first)), number(energies.at(falling.first - 1))) +
                    ofSoMany(falling, energies.size()) + u'.');
        }
    });
}

void energiesRepeat(const EntryFile& file, const Complain& complain)
{
    forEachWithPoints(file, [&](const PlacedSpectrum& spectrum) {
        const QList<double>& energies = spectrum.points.energies;
        if (std::is_sorted(energies.begin(), energies.end(), std::less_equal<>()))
            return; // every one above the one before
        Deviants repeated;
        QSet<double> seen;
        seen.reserve(energies.size());
        for (qsizetype i = 0; i < energies.size(); ++i) {
            if (seen.contains(energies.at(i)))
                repeated.take(i);
            seen.insert(energies.at(i));
        }
        if (repeated.count > 0) {
            complain(placeOf(spectrum, "E"_L1, repeated.first),
                     u"The energy %1 occurs again; expected is one point for each energy"_s.arg(
                         number(energies.at(repeated.first))) +
                         ofSoMany(repeated, energies.size()) + u'.');
        }
    });
}

void energiesRange(const EntryFile& file, const Complain& complain)
{
    forEachWithPoints(file, [&](const PlacedSpectrum& spectrum) {
        const QList<double>& energies = spectrum.points.energies;
        Deviants outside;
        for (qsizetype i = 0; i < energies.size(); ++i) {
            if (energies.at(i) < 1 || energies.at(i) > 1500)
                outside.take(i);
        }
        if (outside.count > 0) {
            complain(placeOf(spectrum, "E"_L1, outside.first),
                     u"The photon energy is %1 eV; expected are 1 to 1,500 eV"_s.arg(
                         number(energies.at(outside.first))) +
                         ofSoMany(outside, energies.size()) + u'.');
        }
    });
}

void noIntensity(const EntryFile& file, const Complain& complain)
{
    forEachWithPoints(file, [&](const PlacedSpectrum& spectrum) {
        const QList<double>& intensities = spectrum.points.intensities;
        if (std::all_of(intensities.begin(), intensities.end(), [](double i) { return i <= 0; })) {
            complain(placeOf(spectrum, "I"_L1),
                     u"All intensities are 0 or negative; expected is a signal."_s);
        }
    });
}

void evenLines(const EntryFile& file, const Complain& complain)
{
    forEachWithPoints(file, [&](const PlacedSpectrum& spectrum) {
        const QList<double>& energies = spectrum.points.energies;
        if (spectrum.record.value("LineSpectrum"_L1).toBool() && energies.size() >= 1000 &&
            isEvenlySpaced(energies)) {
            complain(JsonPointer::member(spectrum.place, u"LineSpectrum"_s),
                     u"The line spectrum has %1 evenly spaced points, as a curve has."_s.arg(
                         energies.size()));
        }
    });
}

void manyDigits(const EntryFile& file, const Complain& complain)
{
    forEachWithPoints(file, [&](const PlacedSpectrum& spectrum) {
        const auto look = [&](QLatin1StringView axis, const QList<double>& numbers) {
            Deviants deviants;
            for (qsizetype i = 0; i < numbers.size(); ++i) {
                if (!SignificantDigits::areAtMostSix(numbers.at(i)))
                    deviants.take(i);
            }
            if (deviants.count > 0) {
                complain(
                    placeOf(spectrum, axis, deviants.first),
                    u"%1 has more than six significant digits, to which the editor rounds"_s.arg(
                        number(numbers.at(deviants.first))) +
                        ofSoMany(deviants, numbers.size()) + u'.');
            }
        };
        look("E"_L1, spectrum.points.energies);
        look("I"_L1, spectrum.points.intensities);
    });
}

void doi(const EntryFile& file, const Complain& complain)
{
    static const QRegularExpression separator(u"<br>|[;,]\\s+|\\s+"_s);
    forEachSpectrum(file, [&](const PlacedSpectrum& spectrum) {
        const QString text = spectrum.record.value("DOI"_L1).toString().trimmed();
        const QStringList parts = text.split(separator, Qt::SkipEmptyParts);
        if (!(Doi::isDoi(text) || std::all_of(parts.begin(), parts.end(), Doi::isDoi))) {
            complain(JsonPointer::member(spectrum.place, u"DOI"_s),
                     u"\"%1\" is no DOI; expected is the form 10.1234/abc."_s.arg(text));
        }
    });
}

void createdDate(const EntryFile& file, const Complain& complain)
{
    forEachSpectrum(file, [&](const PlacedSpectrum& spectrum) {
        const QJsonValue date = spectrum.record.value("CreatedDate"_L1);
        if (date.isString() && !createdOn(spectrum).isValid()) {
            complain(JsonPointer::member(spectrum.place, u"CreatedDate"_s),
                     u"\"%1\" is no date; expected is a day as yyyy-MM-dd."_s.arg(date.toString()));
        }
    });
}

void createdLater(const EntryFile& file, const Complain& complain)
{
    forEachSpectrum(file, [&](const PlacedSpectrum& spectrum) {
        const QDate date = createdOn(spectrum);
        if (date.isValid() && date > latestToday()) {
            complain(JsonPointer::member(spectrum.place, u"CreatedDate"_s),
                     u"The day %1 is still to come."_s.arg(date.toString(Qt::ISODate)));
        }
    });
}

} // namespace SpectrumRules
