// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/atomicweights.h"
#include "entries/composition.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// "C2H6O, charge -1, labelled"; "unclear" when there is none.
QString described(const std::optional<Composition>& composition)
{
    if (!composition)
        return u"unclear"_s;
    QString text = composition->hillFormula();
    if (composition->charge != 0)
        text += u", charge %1"_s.arg(composition->charge);
    if (composition->labelled)
        text += u", labelled"_s;
    return text;
}

} // namespace

/// Formulas: what is read from them, and what that weighs.
class TestComposition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sumFormulaIsRead_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("expected");
        const auto add = [](const QString& formula, const QString& expected) {
            QTest::newRow(qPrintable(formula)) << formula << expected;
        };
        add(u"NO"_s, u"NO"_s);
        add(u"H<sub>2</sub>O"_s, u"H2O"_s);
        add(u"H₂O"_s, u"H2O"_s);
        add(u"OH2"_s, u"H2O"_s);
        add(u"C<sub>10</sub>H<sub>8</sub>"_s, u"C10H8"_s);
        add(u"BrCH3"_s, u"CH3Br"_s);
        add(u"Co"_s, u"Co"_s);
        add(u"CO"_s, u"CO"_s);
        add(u"(CH<sub>3</sub>)<sub>2</sub>CO"_s, u"C3H6O"_s);
        add(u"[Fe(CO)5]"_s, u"C5FeO5"_s);
        add(u"C2H5OH·2H2O"_s, u"C2H10O3"_s);
        add(u"D<sub>2</sub>O"_s, u"D2O"_s);
        add(u"NO<sup>+</sup>"_s, u"NO, charge 1"_s);
        add(u"SO<sub>4</sub><sup>2−</sup>"_s, u"O4S, charge -2"_s);
        add(u"Ca²⁺"_s, u"Ca, charge 2"_s);
        add(u"Ca<sup>++</sup>"_s, u"Ca, charge 2"_s);
        add(u"NH4+"_s, u"H4N, charge 1"_s);
        add(u"OH•"_s, u"HO"_s);
        add(u"<sup>13</sup>CO"_s, u"CO, labelled"_s);
        add(u"C H3 I"_s, u"CH3I"_s);
    }

    void sumFormulaIsRead()
    {
        QFETCH(const QString, formula);
        QFETCH(const QString, expected);
        QCOMPARE(described(Compositions::fromSumFormula(formula)), expected);
    }

    void unclearFormulaIsNotRead_data()
    {
        QTest::addColumn<QString>("formula");
        for (const char* formula :
             {"", "no", "Xx2", "SO42-", "(CH3", "CH3)", "H2O.", "2", "H99999", "{H}", "C6H6 (gas)",
              "H2O<sup>x</sup>", "((((((((((C))))))))))", "CnH2n+2", "<b>CO</b>"})
            QTest::newRow(formula) << QString::fromLatin1(formula);
    }

    void unclearFormulaIsNotRead()
    {
        QFETCH(const QString, formula);
        QCOMPARE(described(Compositions::fromSumFormula(formula)), u"unclear"_s);
    }

    void inchiIsRead_data()
    {
        QTest::addColumn<QString>("inchi");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char* inchi, const QString& expected) {
            QTest::newRow(inchi) << QString::fromLatin1(inchi) << expected;
        };
        add("InChI=1S/NO/c1-2", u"NO"_s);
        add("InChI=1S/C6H6/c1-2-4-6-5-3-1/h1-6H", u"C6H6"_s);
        add("InChI=1S/H3N/h1H3/p+1", u"H4N, charge 1"_s);
        add("InChI=1S/H2O/h1H2/p-1", u"HO, charge -1"_s);
        add("InChI=1S/p+1", u"H, charge 1"_s);
        add("InChI=1S/ClH.Na/h1H;/q;+1/p-1", u"ClNa"_s);
        add("InChI=1S/2C2H4.Ca/c2*1-2;/h2*1-2H2;/q2*-1;+2", u"C4H8Ca"_s);
        add("InChI=1S/CuH2O4S.5H2O/x", u"CuH12O9S"_s);
        add("InChI=1S/H2O/h1H2/i/hD2", u"H2O, labelled"_s);
        add("InChI=1/NO/c1-2", u"unclear"_s);
        add("InChI=1S", u"unclear"_s);
        add("InChI=1S/NO/qx", u"unclear"_s);
        add("", u"unclear"_s);
    }

    void inchiIsRead()
    {
        QFETCH(const QString, inchi);
        QFETCH(const QString, expected);
        QCOMPARE(described(Compositions::fromInChI(inchi)), expected);
    }

    void isotopesOfHydrogenCountAsHydrogen()
    {
        const auto water = Compositions::fromSumFormula(u"HDO"_s);
        QVERIFY(water);
        QCOMPARE(water->withoutIsotopes().hillFormula(), u"H2O"_s);
    }

    /// Published masses, and those of the main isotopes.
    void massesAreThoseThatArePublished_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<double>("average");
        QTest::addColumn<double>("mainIsotopes");
        QTest::newRow("nitric oxide") << u"NO"_s << 30.0061 << 29.997989;
        QTest::newRow("oxygen") << u"O2"_s << 31.9988 << 31.989829;
        QTest::newRow("water") << u"H2O"_s << 18.0153 << 18.010565;
        QTest::newRow("benzene") << u"C6H6"_s << 78.1118 << 78.04695;
        QTest::newRow("osmium tetroxide") << u"OsO4"_s << 254.23 << 255.94114;
        QTest::newRow("uranium hexafluoride") << u"UF6"_s << 352.02 << 352.04121;
        QTest::newRow("iodine") << u"I2"_s << 253.8089 << 253.80894;
    }

    void massesAreThoseThatArePublished()
    {
        QFETCH(const QString, formula);
        QFETCH(const double, average);
        QFETCH(const double, mainIsotopes);
        const auto masses = Compositions::massesOf(*Compositions::fromSumFormula(formula));
        QVERIFY(masses);
        QVERIFY(std::abs(masses->average - average) <= masses->averageUncertainty);
        QVERIFY(std::abs(masses->mainIsotopes - mainIsotopes) <= masses->mainIsotopesUncertainty);
        QVERIFY(masses->mainIsotopesUncertainty < 0.001);
    }

    /// Of these elements only one isotope is found in nature.
    void weightsOfSingleIsotopesAreTheirMasses()
    {
        const QStringList symbols =
            u"Be F Na Al P Sc Mn Co As Y Nb Rh I Cs Pr Tb Ho Tm Au Pa"_s.split(u' ');
        for (const QString& symbol : symbols) {
            const auto weight = AtomicWeights::of(symbol);
            QVERIFY2(weight, qPrintable(symbol));
            QVERIFY2(std::abs(weight->standard - weight->mainIsotope) <= weight->uncertainty,
                     qPrintable(symbol));
        }
    }

    /// Masses are within a tenth of the number of nucleons, and weights near them.
    void weightsAreThoseOfAtoms_data()
    {
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<int>("nucleons");
        const QStringList elements =
            u"H1 He4 Li7 Be9 B11 C12 N14 O16 F19 Ne20 Na23 Mg24 Al27 Si28 P31 S32 Cl35 Ar40 K39 "
            u"Ca40 "
            "Sc45 Ti48 V51 Cr52 Mn55 Fe56 Co59 Ni58 Cu63 Zn64 Ga69 Ge74 As75 Se80 Br79 Kr84 Rb85 "
            "Sr88 Y89 Zr90 Nb93 Mo98 Ru102 Rh103 Pd106 Ag107 Cd114 In115 Sn120 Sb121 Te130 I127 "
            "Xe132 Cs133 Ba138 La139 Ce140 Pr141 Nd142 Sm152 Eu153 Gd158 Tb159 Dy164 Ho165 Er166 "
            "Tm169 Yb174 Lu175 Hf180 Ta181 W184 Re187 Os192 Ir193 Pt195 Au197 Hg202 Tl205 Pb208 "
            "Bi209 Th232 Pa231 U238"_s.split(u' ');
        for (const QString& element : elements) {
            const qsizetype letters = element.at(1).isDigit() ? 1 : 2;
            QTest::newRow(qPrintable(element))
                << element.first(letters) << element.sliced(letters).toInt();
        }
    }

    void weightsAreThoseOfAtoms()
    {
        QFETCH(const QString, symbol);
        QFETCH(const int, nucleons);
        const auto weight = AtomicWeights::of(symbol);
        QVERIFY(weight);
        QCOMPARE(qRound(weight->mainIsotope), nucleons);
        QVERIFY(std::abs(weight->mainIsotope - nucleons) < 0.11);
        constexpr double mostByOtherIsotopes = 3; // tellurium
        QVERIFY(std::abs(weight->standard - weight->mainIsotope) < mostByOtherIsotopes);
        QVERIFY(weight->uncertainty > 0 && weight->uncertainty < 2);
    }

    void unknownWeightsGiveNoMass_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::newRow("technetium") << u"TcO"_s;
        QTest::newRow("isotope") << u"<sup>13</sup>CO"_s;
    }

    void unknownWeightsGiveNoMass()
    {
        QFETCH(const QString, formula);
        QVERIFY(!Compositions::massesOf(*Compositions::fromSumFormula(formula)));
    }
};

QTEST_APPLESS_MAIN(TestComposition)
#include "tst_composition.moc"
