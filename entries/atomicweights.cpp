// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/atomicweights.h"

#include <QHash>
#include <QSet>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, AtomicWeights::Weight>& weights()
{
    static const QHash<QString, AtomicWeights::Weight> table{
        {u"H"_s, {1.0080, 0.0002, 1.007825}},    {u"D"_s, {2.014102, 0.00001, 2.014102}},
        {u"T"_s, {3.016049, 0.00001, 3.016049}}, {u"He"_s, {4.0026, 0.0001, 4.002603}},
        {u"Li"_s, {6.94, 0.06, 7.016003}},       {u"Be"_s, {9.0122, 0.0001, 9.012183}},
        {u"B"_s, {10.81, 0.02, 11.009305}},      {u"C"_s, {12.011, 0.002, 12.0}},
        {u"N"_s, {14.007, 0.001, 14.003074}},    {u"O"_s, {15.999, 0.001, 15.994915}},
        {u"F"_s, {18.998, 0.001, 18.998403}},    {u"Ne"_s, {20.180, 0.001, 19.992440}},
        {u"Na"_s, {22.990, 0.001, 22.989769}},   {u"Mg"_s, {24.305, 0.002, 23.985042}},
        {u"Al"_s, {26.982, 0.001, 26.981538}},   {u"Si"_s, {28.085, 0.001, 27.976927}},
        {u"P"_s, {30.974, 0.001, 30.973762}},    {u"S"_s, {32.06, 0.02, 31.972071}},
        {u"Cl"_s, {35.45, 0.01, 34.968853}},     {u"Ar"_s, {39.95, 0.16, 39.962383}},
        {u"K"_s, {39.098, 0.001, 38.963706}},    {u"Ca"_s, {40.078, 0.004, 39.962591}},
        {u"Sc"_s, {44.956, 0.001, 44.955907}},   {u"Ti"_s, {47.867, 0.001, 47.947941}},
        {u"V"_s, {50.942, 0.001, 50.943958}},    {u"Cr"_s, {51.996, 0.001, 51.940505}},
        {u"Mn"_s, {54.938, 0.001, 54.938043}},   {u"Fe"_s, {55.845, 0.002, 55.934936}},
        {u"Co"_s, {58.933, 0.001, 58.933194}},   {u"Ni"_s, {58.693, 0.001, 57.935342}},
        {u"Cu"_s, {63.546, 0.003, 62.929597}},   {u"Zn"_s, {65.38, 0.02, 63.929142}},
        {u"Ga"_s, {69.723, 0.001, 68.925574}},   {u"Ge"_s, {72.630, 0.008, 73.921178}},
        {u"As"_s, {74.922, 0.001, 74.921595}},   {u"Se"_s, {78.971, 0.008, 79.916522}},
        {u"Br"_s, {79.904, 0.003, 78.918338}},   {u"Kr"_s, {83.798, 0.002, 83.911498}},
        {u"Rb"_s, {85.468, 0.001, 84.911790}},   {u"Sr"_s, {87.62, 0.01, 87.905612}},
        {u"Mo"_s, {95.95, 0.01, 97.905404}},     {u"Ag"_s, {107.87, 0.01, 106.90509}},
        {u"Cd"_s, {112.41, 0.01, 113.90337}},    {u"In"_s, {114.82, 0.01, 114.90388}},
        {u"Sn"_s, {118.71, 0.01, 119.90220}},    {u"Sb"_s, {121.76, 0.01, 120.90381}},
        {u"Te"_s, {127.60, 0.03, 129.90622}},    {u"I"_s, {126.90, 0.01, 126.90447}},
        {u"Xe"_s, {131.29, 0.01, 131.90416}},    {u"Cs"_s, {132.91, 0.01, 132.90545}},
        {u"Ba"_s, {137.33, 0.01, 137.90525}},    {u"W"_s, {183.84, 0.01, 183.95093}},
        {u"Pt"_s, {195.08, 0.02, 194.96479}},    {u"Au"_s, {196.97, 0.01, 196.96657}},
        {u"Hg"_s, {200.59, 0.01, 201.97064}},    {u"Tl"_s, {204.38, 0.01, 204.97443}},
        {u"Pb"_s, {207.2, 1.1, 207.97665}},      {u"Bi"_s, {208.98, 0.01, 208.98040}},
    };
    return table;
}

const QSet<QString>& symbols()
{
    static const QStringList list =
        u"D T H He Li Be B C N O F Ne Na Mg Al Si P S Cl Ar K Ca Sc Ti V Cr Mn Fe Co Ni Cu Zn Ga "
        "Ge As Se Br Kr Rb Sr Y Zr Nb Mo Tc Ru Rh Pd Ag Cd In Sn Sb Te I Xe Cs Ba La Ce Pr Nd Pm "
        "Sm Eu Gd Tb Dy Ho Er Tm Yb Lu Hf Ta W Re Os Ir Pt Au Hg Tl Pb Bi Po At Rn Fr Ra Ac Th Pa "
        "U Np Pu Am Cm Bk Cf Es Fm Md No Lr Rf Db Sg Bh Hs Mt Ds Rg Cn Nh Fl Mc Lv Ts Og"_s.split(
            u' ');
    static const QSet<QString> set(list.begin(), list.end());
    return set;
}

} // namespace

namespace AtomicWeights {

std::optional<Weight> of(const QString& symbol)
{
    const auto found = weights().constFind(symbol);
    if (found == weights().constEnd())
        return {};
    return *found;
}

bool isElement(const QString& symbol)
{
    return symbols().contains(symbol);
}

} // namespace AtomicWeights
