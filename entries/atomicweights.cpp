// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/atomicweights.h"

#include <QSet>
#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    const char* symbol = nullptr;
    AtomicWeights::Weight weight;
};

constexpr std::array table{
    Row{"H", {1.0080, 0.0002, 1.007825}},    Row{"D", {2.014102, 0.00001, 2.014102}},
    Row{"T", {3.016049, 0.00001, 3.016049}}, Row{"He", {4.0026, 0.0001, 4.002603}},
    Row{"Li", {6.94, 0.06, 7.016003}},       Row{"Be", {9.0122, 0.0001, 9.012183}},
    Row{"B", {10.81, 0.02, 11.009305}},      Row{"C", {12.011, 0.002, 12.0}},
    Row{"N", {14.007, 0.001, 14.003074}},    Row{"O", {15.999, 0.001, 15.994915}},
    Row{"F", {18.998, 0.001, 18.998403}},    Row{"Ne", {20.180, 0.001, 19.992440}},
    Row{"Na", {22.990, 0.001, 22.989769}},   Row{"Mg", {24.305, 0.002, 23.985042}},
    Row{"Al", {26.982, 0.001, 26.981538}},   Row{"Si", {28.085, 0.001, 27.976927}},
    Row{"P", {30.974, 0.001, 30.973762}},    Row{"S", {32.06, 0.02, 31.972071}},
    Row{"Cl", {35.45, 0.01, 34.968853}},     Row{"Ar", {39.95, 0.16, 39.962383}},
    Row{"K", {39.098, 0.001, 38.963706}},    Row{"Ca", {40.078, 0.004, 39.962591}},
    Row{"Sc", {44.956, 0.001, 44.955907}},   Row{"Ti", {47.867, 0.001, 47.947941}},
    Row{"V", {50.942, 0.001, 50.943958}},    Row{"Cr", {51.996, 0.001, 51.940505}},
    Row{"Mn", {54.938, 0.001, 54.938043}},   Row{"Fe", {55.845, 0.002, 55.934936}},
    Row{"Co", {58.933, 0.001, 58.933194}},   Row{"Ni", {58.693, 0.001, 57.935342}},
    Row{"Cu", {63.546, 0.003, 62.929597}},   Row{"Zn", {65.38, 0.02, 63.929142}},
    Row{"Ga", {69.723, 0.001, 68.925574}},   Row{"Ge", {72.630, 0.008, 73.921178}},
    Row{"As", {74.922, 0.001, 74.921595}},   Row{"Se", {78.971, 0.008, 79.916522}},
    Row{"Br", {79.904, 0.003, 78.918338}},   Row{"Kr", {83.798, 0.002, 83.911498}},
    Row{"Rb", {85.468, 0.001, 84.911790}},   Row{"Sr", {87.62, 0.01, 87.905612}},
    Row{"Y", {88.906, 0.001, 88.90584}},     Row{"Zr", {91.224, 0.002, 89.90470}},
    Row{"Nb", {92.906, 0.001, 92.90637}},    Row{"Mo", {95.95, 0.01, 97.905404}},
    Row{"Ru", {101.07, 0.02, 101.90434}},    Row{"Rh", {102.91, 0.01, 102.90550}},
    Row{"Pd", {106.42, 0.01, 105.90348}},    Row{"Ag", {107.87, 0.01, 106.90509}},
    Row{"Cd", {112.41, 0.01, 113.90337}},    Row{"In", {114.82, 0.01, 114.90388}},
    Row{"Sn", {118.71, 0.01, 119.90220}},    Row{"Sb", {121.76, 0.01, 120.90381}},
    Row{"Te", {127.60, 0.03, 129.90622}},    Row{"I", {126.90, 0.01, 126.90447}},
    Row{"Xe", {131.29, 0.01, 131.90416}},    Row{"Cs", {132.91, 0.01, 132.90545}},
    Row{"Ba", {137.33, 0.01, 137.90525}},    Row{"La", {138.91, 0.01, 138.90636}},
    Row{"Ce", {140.12, 0.01, 139.90544}},    Row{"Pr", {140.91, 0.01, 140.90766}},
    Row{"Nd", {144.24, 0.01, 141.90773}},    Row{"Sm", {150.36, 0.02, 151.91974}},
    Row{"Eu", {151.96, 0.01, 152.92124}},    Row{"Gd", {157.25, 0.03, 157.92411}},
    Row{"Tb", {158.93, 0.01, 158.92535}},    Row{"Dy", {162.50, 0.01, 163.92918}},
    Row{"Ho", {164.93, 0.01, 164.93033}},    Row{"Er", {167.26, 0.01, 165.93030}},
    Row{"Tm", {168.93, 0.01, 168.93422}},    Row{"Yb", {173.05, 0.02, 173.93887}},
    Row{"Lu", {174.97, 0.01, 174.94078}},    Row{"Hf", {178.49, 0.01, 179.94656}},
    Row{"Ta", {180.95, 0.01, 180.94800}},    Row{"W", {183.84, 0.01, 183.95093}},
    Row{"Re", {186.21, 0.01, 186.95575}},    Row{"Os", {190.23, 0.03, 191.96148}},
    Row{"Ir", {192.22, 0.01, 192.96292}},    Row{"Pt", {195.08, 0.02, 194.96479}},
    Row{"Au", {196.97, 0.01, 196.96657}},    Row{"Hg", {200.59, 0.01, 201.97064}},
    Row{"Tl", {204.38, 0.01, 204.97443}},    Row{"Pb", {207.2, 1.1, 207.97665}},
    Row{"Bi", {208.98, 0.01, 208.98040}},    Row{"Th", {232.04, 0.01, 232.03806}},
    Row{"Pa", {231.04, 0.01, 231.03588}},    Row{"U", {238.03, 0.01, 238.05079}},
};

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
    for (const Row& row : table) {
        if (symbol == QLatin1StringView(row.symbol))
            return row.weight;
    }
    return {};
}

bool isElement(const QString& symbol)
{
    return symbols().contains(symbol);
}

} // namespace AtomicWeights
