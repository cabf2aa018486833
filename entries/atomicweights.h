// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

/// How heavy atoms are.
///
/// Sources: standard atomic weights of the elements 2021 as the IUPAC Commission on Isotopic
/// Abundances and Atomic Weights (CIAAW) abridges them to five significant digits, with their
/// uncertainties, which cover the variation in nature; T. Prohaska et al., Pure Appl. Chem. 94, 573
/// (2022). Masses of the most abundant isotope from the atomic mass evaluation AME2020,
/// M. Wang et al., Chinese Phys. C 45, 030003 (2021), rounded. "D" and "T" are isotopes of
/// hydrogen, whose weight is the mass.
///
/// Compared on 2026-11-22 with NIST's masses and isotopic compositions of AME2016 (by way of the
/// npm package chemical-elements 2.3.3): no mass differs by more than 1.3e-6, and no weight by more
/// than its uncertainty but Se and Mo, whose weights are from later measurements than their
/// compositions.
///
/// Elements without a standard weight are left out: nothing can then be said about a mass.
namespace AtomicWeights {

struct Weight
{
    double standard = 0;    ///< In atomic mass units.
    double uncertainty = 0; ///< Of the standard weight.
    double mainIsotope = 0; ///< Mass of the most abundant isotope.
};

[[nodiscard]] std::optional<Weight> of(const QString& symbol);

/// Whether there is an element, or isotope of hydrogen, of this symbol.
[[nodiscard]] bool isElement(const QString& symbol);

/// Mass of the electron, which a cation lacks.
constexpr double electron = 0.00054858;

/// What the rounding of the isotopes' masses can amount to, for one atom.
constexpr double isotopeRounding = 2e-5;

} // namespace AtomicWeights
