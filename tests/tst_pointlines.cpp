// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointlines.h"

#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(std::optional<double>)

/// Lines of a point text, sought by energy and followed through commands.
class TestPointLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedEnergyIsRead_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<std::optional<double>>("energy");
        using Energy = std::optional<double>;
        QTest::newRow("decimal") << u"12.62"_s << Energy(12.62);
        QTest::newRow("exponent") << u"1e1"_s << Energy(10);
        QTest::newRow("blanks around") << u" 12 "_s << Energy(12);
        QTest::newRow("unit") << u"12.62 eV"_s << Energy(12.62);
        QTest::newRow("unit close by, small") << u"12.62ev"_s << Energy(12.62);
        QTest::newRow("dot at the end") << u"12."_s << Energy(12);
        QTest::newRow("negative") << u"-0.5"_s << Energy(-0.5);
        QTest::newRow("decimal comma") << u"12,62"_s << Energy();
        QTest::newRow("thousands") << u"1,250"_s << Energy();
        QTest::newRow("other unit") << u"98 nm"_s << Energy();
        QTest::newRow("unit alone") << u"eV"_s << Energy();
        QTest::newRow("two numbers") << u"12 13"_s << Energy();
        QTest::newRow("infinite") << u"inf"_s << Energy();
        QTest::newRow("no number") << u"nan"_s << Energy();
        QTest::newRow("nothing") << QString() << Energy();
    }
    void typedEnergyIsRead()
    {
        QFETCH(QString, typed);
        QTEST(PointLines::energyIn(typed), "energy");
    }

    void nearestEnergyIsFoundInAnyOrder_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("energy");
        QTest::addColumn<int>("line"); // -1: none
        const QString unsorted = u"E I\n12 1\n\n10 2\n11 3\n1,5 2,0\n9.5 4"_s;
        QTest::newRow("exactly") << unsorted << 10.0 << 3;
        QTest::newRow("from below") << unsorted << 10.6 << 4;
        QTest::newRow("from above") << unsorted << 10.4 << 3;
        QTest::newRow("beyond the highest") << unsorted << 1e6 << 1;
        QTest::newRow("beyond the lowest") << unsorted << -1e6 << 6;
        QTest::newRow("first of two as near") << u"10 1\n12 2\n10 3"_s << 11.0 << 0;
        QTest::newRow("first of equals") << u"1 1\n10 1\n10 2"_s << 10.0 << 1;
        QTest::newRow("energies that are none") << u"nan 1\ninf 2\n10 3\n-inf 4"_s << 1e300 << 2;
        QTest::newRow("only such") << u"nan 1\ninf 2"_s << 1.0 << -1;
        QTest::newRow("no point") << u"E I\n\n1,5 2,0"_s << 1.5 << -1;
        QTest::newRow("nothing") << QString() << 1.5 << -1;
    }
    void nearestEnergyIsFoundInAnyOrder()
    {
        QFETCH(QString, text);
        QFETCH(double, energy);
        const auto found = PointLines::nearest(text, energy);
        QTEST(found ? static_cast<int>(found->number) : -1, "line");
        if (found)
            QCOMPARE(PointText::pointOf(QStringView(text).sliced(found->position, found->length)),
                     found->point);
    }

    void pointsEquallyNearAreFoundOneAfterTheOther()
    {
        const QString text = u"10 1\n11 2\n10 3\n10 4\n"_s;
        const auto line = [&text](qsizetype from) {
            return PointLines::nearest(text, 10.1, from)->number;
        };
        QCOMPARE(line(0), 0);
        QCOMPARE(line(1), 2);
        QCOMPARE(line(2), 2);
        QCOMPARE(line(3), 3);
        QCOMPARE(line(4), 0);
    }

    void lineIsFoundAgainAfterACommand_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("counterpart");
        const QString mixed = u"E I\n10 1\n\n11 2\n# end\n12 3\n"_s;
        const QString scaled = u"10 333\n11 667\n12 1000"_s;
        QTest::newRow("same lines") << u"1,5 2\n\n3 4"_s << 2 << u"1.5 2\n\n3 4"_s << 2;
        QTest::newRow("same point") << mixed << 3 << scaled << 1;
        QTest::newRow("heading: the point below") << mixed << 0 << scaled << 0;
        QTest::newRow("comment: the point below") << mixed << 4 << scaled << 2;
        QTest::newRow("behind all points: the last") << mixed << 6 << scaled << 2;
        QTest::newRow("same point, back") << scaled << 2 << mixed << 5;
        const QString grid = u"10.5 1\n10.9 2\n11.2 3\n11.5 4"_s;
        QTest::newRow("nearest energy") << mixed << 3 << grid << 1;
        QTest::newRow("nearest energy, last") << mixed << 5 << grid << 3;
        QTest::newRow("nothing left") << mixed << 3 << QString() << 0;
        QTest::newRow("no points at all") << u"a\nb\nc"_s << 2 << u"a\nb"_s << 1;
        QTest::newRow("no points before") << u"a\nb\nc"_s << 1 << u"1 2\n3 4"_s << 1;
        QTest::newRow("energies that are none") << u"nan 1\n1 2\n"_s << 0 << u"3 4"_s << 0;
    }
    void lineIsFoundAgainAfterACommand()
    {
        QFETCH(QString, before);
        QFETCH(int, line);
        QFETCH(QString, after);
        QTEST(static_cast<int>(PointLines::counterparts(before, {line}, after).constFirst()),
              "counterpart");
    }
};

QTEST_MAIN(TestPointLines)
#include "tst_pointlines.moc"
