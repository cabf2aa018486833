// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/examples/franckcondon.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// CODATA 2018 (E. Tiesinga et al., Rev. Mod. Phys. 93, 025010 (2021)).
constexpr double reducedPlanck = 1.054571817e-34; // J s
constexpr double speedOfLight = 2.99792458e10;    // cm/s
constexpr double atomicMass = 1.66053906660e-27;  // kg
constexpr double wavenumberInEv = 1.239841984e-4; // eV per cm^-1

constexpr double angstromPerMetre = 1e10;
constexpr double fullScale = 1000.0;

/// mu omega / hbar, angstrom^-2, of a wavenumber in cm^-1 and a reduced mass in atomic mass units.
double curvature(double wavenumber, double mass)
{
    const double angularFrequency = 2.0 * std::numbers::pi * speedOfLight * wavenumber;
    const double perSquareMetre = mass * atomicMass * angularFrequency / reducedPlanck;
    return perSquareMetre / (angstromPerMetre * angstromPerMetre);
}

/// Normalised Hermite functions by their recursion, which neither overflows nor cancels.
double harmonicWaveFunction(double inverseLength, int level, double displacement)
{
    const double x = displacement * inverseLength;
    double previous = 0.0;
    double current =
        std::sqrt(inverseLength / std::sqrt(std::numbers::pi)) * std::exp(-0.5 * x * x);
    for (int n = 0; n < level; ++n) {
        const double next =
            (std::sqrt(2.0) * x * current - std::sqrt(double(n)) * previous) / std::sqrt(n + 1.0);
        previous = current;
        current = next;
    }
    return current;
}

/// The generalised Laguerre polynomial, by the recursion in its degree.
double laguerre(int degree, double alpha, double z)
{
    double previous = 0.0;
    double current = 1.0;
    for (int n = 0; n < degree; ++n) {
        const double next =
            ((2.0 * n + 1.0 + alpha - z) * current - (n + alpha) * previous) / (n + 1.0);
        previous = current;
        current = next;
    }
    return current;
}

/// P. M. Morse, Phys. Rev. 34, 57 (1929): with lambda = omega_e / (2 omega_e x_e), s = lambda - v -
/// 1/2 and z = 2 lambda exp(-a (r - r_e)), the eigenfunctions are
/// sqrt(2 a s v! / Gamma(2 lambda - v)) z^s exp(-z / 2) L_v^(2s)(z). The factors are taken together
/// as logarithms because most of them leave the range of a double.
double morseWaveFunction(double lambda, double a, int level, double displacement)
{
    const double s = lambda - level - 0.5;
    const double logZ = std::log(2.0 * lambda) - a * displacement;
    const double z = std::exp(logZ);
    const double logNorm = 0.5 * (std::log(2.0 * a * s) + std::lgamma(level + 1.0) -
                                  std::lgamma(2.0 * lambda - level));
    return std::exp(logNorm + s * logZ - 0.5 * z) * laguerre(level, 2.0 * s, z);
}

bool isMorse(const FranckCondon::Oscillator& state)
{
    return state.anharmonicity > 0.0;
}

double morseLambda(const FranckCondon::Oscillator& state)
{
    return state.frequency / (2.0 * state.anharmonicity);
}

} // namespace

namespace FranckCondon {

double reducedMass(double mass1, double mass2)
{
    return mass1 * mass2 / (mass1 + mass2);
}

double naturalLength(const Oscillator& state, double mass)
{
    return 1.0 / std::sqrt(curvature(state.frequency, mass));
}

double termValue(const Oscillator& state, int level)
{
    const double n = level + 0.5;
    return state.frequency * n - state.anharmonicity * n * n;
}

int levelCount(const Oscillator& state, int limit)
{
    if (!isMorse(state))
        return limit;
    // Bound levels have a positive s.
    const double bound = std::ceil(morseLambda(state) - 0.5);
    return static_cast<int>(std::clamp(bound, 0.0, double(limit)));
}

double waveFunction(const Oscillator& state, double mass, int level, double bondLength)
{
    const double displacement = bondLength - state.bondLength;
    if (!isMorse(state))
        return harmonicWaveFunction(1.0 / naturalLength(state, mass), level, displacement);
    // a^2 = 2 mu (h c omega_e x_e) / hbar^2
    const double a = std::sqrt(2.0 * curvature(state.anharmonicity, mass));
    return morseWaveFunction(morseLambda(state), a, level, displacement);
}

QList<double> factors(const Oscillator& from, const Oscillator& to, double mass, int limit)
{
    // Where the ground level's wave function is more than rounding noise. A sum over equidistant
    // points is then a far better integral than its simplicity suggests: it converges exponentially
    // for smooth functions that vanish at both ends.
    constexpr double halfWidth = 15.0; // natural lengths
    constexpr int steps = 2000;
    const double length = naturalLength(from, mass);
    const double start = from.bondLength - halfWidth * length;
    const double step = 2.0 * halfWidth * length / steps;

    QList<double> ground;
    ground.reserve(steps + 1);
    for (int i = 0; i <= steps; ++i)
        ground.append(waveFunction(from, mass, 0, start + i * step));

    QList<double> result;
    const int levels = levelCount(to, limit);
    for (int level = 0; level < levels; ++level) {
        double overlap = 0.0;
        for (int i = 0; i <= steps; ++i)
            overlap += ground.at(i) * waveFunction(to, mass, level, start + i * step);
        overlap *= step;
        result.append(overlap * overlap);
    }
    return result;
}

double bandEnergy(const Oscillator& cation, double ionisationEnergy, int level)
{
    const double excitation = termValue(cation, level) - termValue(cation, 0);
    return ionisationEnergy + excitation * wavenumberInEv;
}

QList<QPointF> lineSpectrum(const Oscillator& neutral, const Oscillator& cation, double mass,
                            double ionisationEnergy)
{
    constexpr int mostLevels = 40;
    constexpr double negligible = 1e-4;
    const QList<double> strengths = factors(neutral, cation, mass, mostLevels);
    if (strengths.isEmpty())
        return {};
    const double strongest = *std::max_element(strengths.cbegin(), strengths.cend());

    QList<QPointF> lines;
    for (int level = 0; level < strengths.size(); ++level) {
        const double relative = strengths.at(level) / strongest;
        if (relative >= negligible) {
            lines.append(
                QPointF(bandEnergy(cation, ionisationEnergy, level), relative * fullScale));
        }
    }
    return lines;
}

QList<QPointF> convoluted(const QList<QPointF>& lines, double fwhm, double step)
{
    if (lines.isEmpty())
        return {};
    constexpr double margin = 3.0; // widths
    const double exponent = -4.0 * std::numbers::ln2 / (fwhm * fwhm);
    const auto first = std::lround((lines.constFirst().x() - margin * fwhm) / step);
    const auto last = std::lround((lines.constLast().x() + margin * fwhm) / step);

    QList<QPointF> curve;
    double highest = 0.0;
    for (auto i = first; i <= last; ++i) {
        const double energy = double(i) * step;
        double intensity = 0.0;
        for (const QPointF& line : lines) {
            const double distance = energy - line.x();
            intensity += line.y() * std::exp(exponent * distance * distance);
        }
        highest = std::max(highest, intensity);
        curve.append(QPointF(energy, intensity));
    }
    for (QPointF& point : curve)
        point.setY(point.y() / highest * fullScale);
    return curve;
}

} // namespace FranckCondon
