// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointF>

/// Vibrational structure of a band of a diatomic molecule's photoionisation spectrum, in the
/// Franck-Condon approximation: the intensity of a transition is the squared overlap of the
/// vibrational wave functions of the two electronic states. One-dimensional oscillators, no
/// rotation.
namespace FranckCondon {

/// The potential of one electronic state around its minimum: a Morse oscillator, whose well depth
/// is omega_e^2 / (4 omega_e x_e), or a harmonic one when the anharmonicity is 0.
struct Oscillator
{
    double frequency;     ///< omega_e, cm^-1
    double anharmonicity; ///< omega_e x_e, cm^-1; not negative
    double bondLength;    ///< r_e, angstrom
};

/// m1 m2 / (m1 + m2), in the unit of the two masses.
[[nodiscard]] double reducedMass(double mass1, double mass2);

/// The harmonic oscillator's natural length sqrt(hbar / (mu omega)), angstrom, for a reduced mass
/// in atomic mass units.
[[nodiscard]] double naturalLength(const Oscillator& state, double mass);

/// The vibrational term value G(v) = omega_e (v + 1/2) - omega_e x_e (v + 1/2)^2, cm^-1. Exact for
/// both kinds of oscillators.
[[nodiscard]] double termValue(const Oscillator& state, int level);

/// The number of bound levels, but at most @p limit.
[[nodiscard]] int levelCount(const Oscillator& state, int limit);

/// The value, at a bond length in angstrom, of the normalised wave function of a bound level, in
/// angstrom^(-1/2). @p mass is the reduced mass in atomic mass units.
[[nodiscard]] double waveFunction(const Oscillator& state, double mass, int level,
                                  double bondLength);

/// The Franck-Condon factors from the vibrational ground level of @p from to the levels 0, 1, ...
/// of @p to: as many as are bound, but at most @p limit. @p mass is the reduced mass in atomic mass
/// units.
[[nodiscard]] QList<double> factors(const Oscillator& from, const Oscillator& to, double mass,
                                    int limit);

/// The photon energy, eV, of the transition from the vibrational ground level of the neutral to a
/// level of the cation: the adiabatic ionisation energy plus G(v) - G(0).
[[nodiscard]] double bandEnergy(const Oscillator& cation, double ionisationEnergy, int level);

/// The sticks (eV, intensity) of the transitions from the vibrational ground level, the strongest
/// scaled to 1000. Sticks below 1/10000 of the strongest are left out.
[[nodiscard]] QList<QPointF> lineSpectrum(const Oscillator& neutral, const Oscillator& cation,
                                          double mass, double ionisationEnergy);

/// The sum of Gaussians of full width at half maximum @p fwhm, one for each line, on a grid of
/// multiples of @p step that goes beyond the outer lines by three times the width; all energies in
/// eV. The highest value is scaled to 1000.
[[nodiscard]] QList<QPointF> convoluted(const QList<QPointF>& lines, double fwhm, double step);

} // namespace FranckCondon
