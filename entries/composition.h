// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMap>
#include <QString>

#include <optional>

/// What a species is made of.
struct Composition
{
    QMap<QString, int> atoms; ///< How many of each element; "D" and "T" stand for themselves.
    int charge = 0;           ///< In elementary charges.
    bool labelled = false;    ///< Isotopes are named, so that standard weights say nothing.

    [[nodiscard]] int atomCount() const;
    /// In the order of Hill: carbon, hydrogen, then the others by their symbols; "C2H6O".
    [[nodiscard]] QString hillFormula(const QString& separator = {}) const;
    /// Heavy hydrogen counted as hydrogen.
    [[nodiscard]] Composition withoutIsotopes() const;
};

/// Reading formulas of chemists and of InChI.
namespace Compositions {

/// From a sum formula with sub and sup elements or the Unicode characters in their place: groups in
/// brackets, charges ("NO<sup>+</sup>"), addition compounds ("CuSO<sub>4</sub>·5H<sub>2</sub>O"),
/// isotopes ("<sup>13</sup>CO"). Empty when it cannot be read for certain.
[[nodiscard]] std::optional<Composition> fromSumFormula(const QString& markedUp);

/// From the formula layer of a standard InChI and its layers of charge and protons; isotopes are
/// only noted. Empty when it is none.
[[nodiscard]] std::optional<Composition> fromInChI(const QString& inchi);

/// What a species of that composition can be said to weigh.
struct Masses
{
    double average = 0;
    double averageUncertainty = 0;
    double mainIsotopes = 0;
    double mainIsotopesUncertainty = 0;
};

/// Empty where one of the weights is not known, or isotopes are named.
[[nodiscard]] std::optional<Masses> massesOf(const Composition& composition);

} // namespace Compositions
