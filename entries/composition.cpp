// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/composition.h"

#include "entries/atomicweights.h"
#include "entries/formulareader.h"

#include <QRegularExpression>
#include <QStringList>

#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// The sum of what a layer says of each component: "+1", "+1;-1", "2*+1".
std::optional<int> sumOfLayer(const QString& layer)
{
    static const QRegularExpression component(u"^(?:(\\d{1,4})\\*)?([+-]\\d{1,4})?$"_s);
    int sum = 0;
    const QStringList parts = layer.split(u';');
    for (const QString& part : parts) {
        const QRegularExpressionMatch match = component.match(part);
        if (!match.hasMatch())
            return {};
        const int times = match.capturedLength(1) > 0 ? match.captured(1).toInt() : 1;
        sum += times * match.captured(2).toInt();
    }
    return sum;
}

bool isFormulaLayer(const QString& layer)
{
    return !layer.isEmpty() && (layer.front().isUpper() || layer.front().isDigit());
}

/// Adds what a layer behind the formula says; false when it makes no sense.
bool takeLayer(const QString& layer, Composition& composition)
{
    const QChar kind = layer.isEmpty() ? QChar() : layer.front();
    composition.labelled |= kind == u'i';
    if (composition.labelled || (kind != u'q' && kind != u'p'))
        return true; // charges that isotopes bring are not the formula's
    const std::optional<int> number = sumOfLayer(layer.sliced(1));
    if (!number)
        return false;
    composition.charge += *number;
    if (kind == u'p')
        composition.atoms[u"H"_s] += *number;
    return true;
}

} // namespace

int Composition::atomCount() const
{
    return std::accumulate(atoms.begin(), atoms.end(), 0);
}

QString Composition::hillFormula(const QString& separator) const
{
    QStringList order = atoms.keys(); // sorted
    if (atoms.contains(u"C"_s)) {
        for (const QString& first : {u"H"_s, u"C"_s}) {
            if (order.removeOne(first))
                order.prepend(first);
        }
    }
    for (QString& symbol : order) {
        const int count = atoms.value(symbol);
        if (count != 1)
            symbol += QString::number(count);
    }
    return order.join(separator);
}

Composition Composition::withoutIsotopes() const
{
    Composition plain = *this;
    const int heavy = plain.atoms.take(u"D"_s) + plain.atoms.take(u"T"_s);
    if (heavy > 0)
        plain.atoms[u"H"_s] += heavy;
    plain.labelled = false;
    return plain;
}

namespace Compositions {

std::optional<Composition> fromSumFormula(const QString& markedUp)
{
    return FormulaReader(markedUp).read();
}

std::optional<Composition> fromInChI(const QString& inchi)
{
    QStringList layers = inchi.split(u'/');
    if (layers.takeFirst() != "InChI=1S"_L1 || layers.isEmpty())
        return {};
    Composition composition;
    if (isFormulaLayer(layers.first())) {
        const auto formula = FormulaReader(layers.takeFirst()).read();
        if (!formula)
            return {};
        composition = *formula;
    }
    for (const QString& layer : std::as_const(layers)) {
        if (!takeLayer(layer, composition))
            return {};
    }
    composition.atoms.removeIf([](const auto& atom) { return atom.value() == 0; });
    return composition;
}

std::optional<Masses> massesOf(const Composition& composition)
{
    if (composition.labelled || composition.atoms.isEmpty())
        return {};
    Masses masses;
    for (auto atom = composition.atoms.begin(); atom != composition.atoms.end(); ++atom) {
        const auto weight = AtomicWeights::of(atom.key());
        if (!weight)
            return {};
        masses.average += *atom * weight->standard;
        masses.averageUncertainty += *atom * weight->uncertainty;
        masses.mainIsotopes += *atom * weight->mainIsotope;
    }
    // Whether the electrons of an ion are counted differs from author to author.
    const double electrons = std::abs(composition.charge) * AtomicWeights::electron;
    masses.averageUncertainty += electrons;
    masses.mainIsotopesUncertainty =
        composition.atomCount() * AtomicWeights::isotopeRounding + electrons;
    return masses;
}

} // namespace Compositions
