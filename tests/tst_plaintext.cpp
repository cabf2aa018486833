// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/plaintext.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Marked-up text for programs that know no markup.
class TestPlainText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void markupBecomesUnicodeOrGoes_data()
    {
        QTest::addColumn<QString>("markedUp");
        QTest::addColumn<QString>("plain");
        const auto add = [](const QString& markedUp, const QString& plain) {
            QTest::newRow(qPrintable(markedUp)) << markedUp << plain;
        };
        add(u"plain & simple"_s, u"plain & simple"_s);
        add(u"H<sub>2</sub>O"_s, u"H₂O"_s);
        add(u"C<sub>10</sub>H<sub>8</sub><sup>+</sup>"_s, u"C₁₀H₈⁺"_s);
        add(u"cm<sup>-1</sup>, cm<sup>−1</sup>"_s, u"cm⁻¹, cm⁻¹"_s);
        add(u"<sup>2</sup>Π<sub>1/2</sub>"_s, u"²Π1/2"_s);
        add(u"ω<sub>e</sub>x<sub>e</sub>"_s, u"ωₑxₑ"_s);
        add(u"<sup>Q</sup>"_s, u"Q"_s);
        add(u"one<br>two<br/>three"_s, u"one\ntwo\nthree"_s);
        add(u"<sub></sub>a"_s, u"a"_s);
        add(u"T < 300 K > <b>x</b> &lt;"_s, u"T < 300 K > <b>x</b> &lt;"_s);
        add(u"<sub class=\"x\">2</sub>"_s, u"₂"_s);
        add(u"<subscript>2"_s, u"<subscript>2"_s);
        add(u"H<sub>2"_s, u"H₂"_s);
        add(QString(), QString());
    }

    void markupBecomesUnicodeOrGoes()
    {
        QFETCH(const QString, markedUp);
        QFETCH(const QString, plain);
        QCOMPARE(PlainText::fromMarkedUp(markedUp), plain);
    }

    void linesAreJoined()
    {
        QCOMPARE(PlainText::inOneLine(u" a  b<br><br>c\td\ne "_s), u"a b; c d; e"_s);
        QCOMPARE(PlainText::inOneLine(QString()), QString());
    }
};

QTEST_APPLESS_MAIN(TestPlainText)
#include "tst_plaintext.moc"
