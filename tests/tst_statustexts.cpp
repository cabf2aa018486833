// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumstatus.h"
#include "support/savereport.h"

#include <QDateTime>
#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// What the status bar says, in words.
class TestStatusTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointsAreSummedUp_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("said");
        QTest::newRow("nothing") << QString() << u"No points"_s;
        QTest::newRow("blanks") << u"\n  \n\t\n"_s << u"No points"_s;
        QTest::newRow("one") << u"10.5 200"_s << u"1 point, 10.5 eV, largest intensity 200"_s;
        QTest::newRow("two") << u"10.5 200\n9,3"_s
                             << u"2 points, 9 to 10.5 eV, largest intensity 200"_s;
        QTest::newRow("negative") << u"-1 -5\n-2 -4"_s
                                  << u"2 points, -2 to -1 eV, largest intensity -4"_s;
        QTest::newRow("heading") << u"E I\n9 1\n10 2"_s
                                 << u"2 points, 1 line not understood (line 1), 9 to 10 eV, "
                                    "largest intensity 2"_s;
        QTest::newRow("empty lines count in the number of a line")
            << u"\n\n9 1\n \n10 2 3\nx"_s
            << u"1 point, 2 lines not understood (first: line 5), 9 eV, largest intensity 1"_s;
        QTest::newRow("decimal commas")
            << u"12,60 10\n12,62 40"_s << u"No points, 2 lines not understood (first: line 1)"_s;
        QTest::newRow("unsorted") << u"3 1\n1 9\n2 4"_s
                                  << u"3 points, 1 to 3 eV, largest intensity 9"_s;
        QTest::newRow("no numbers") << u"nan nan"_s << u"1 point"_s;
        QTest::newRow("some no numbers")
            << u"nan 1\n9 nan"_s << u"2 points, 9 eV, largest intensity 1"_s;
        QTest::newRow("infinite") << u"-inf inf"_s << u"1 point, -inf eV, largest intensity inf"_s;
    }

    void pointsAreSummedUp()
    {
        QFETCH(QString, text);
        QTEST(SpectrumStatus::toText(PointText::census(text)), "said");
    }

    void numbersAreAsLongAsTheyMustBe_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("said");
        QTest::newRow("all digits") << u"12.3456789"_s << u"12.3456789"_s;
        QTest::newRow("counts") << u"100000"_s << u"100000"_s;
        QTest::newRow("zeros") << u"1000.00"_s << u"1000"_s;
        QTest::newRow("zero") << u"0.0"_s << u"0"_s;
        QTest::newRow("small") << u"0.00002"_s << u"0.00002"_s;
        QTest::newRow("exponent") << u"2e-300"_s << u"2e-300"_s;
        QTest::newRow("large") << u"1e300"_s << u"1e+300"_s;
    }

    void numbersAreAsLongAsTheyMustBe()
    {
        QFETCH(QString, typed);
        QFETCH(QString, said);
        const QString line = typed + u' ' + typed;
        const QString text = SpectrumStatus::toText(PointText::census(line));
        QCOMPARE(text, u"1 point, %1 eV, largest intensity %1"_s.arg(said));
    }

    void savedFileIsTold_data()
    {
        QTest::addColumn<SaveResult>("result");
        QTest::addColumn<QString>("said");
        QTest::addColumn<QString>("inFull");
        QTest::newRow("saved") << SaveResult::Written
                               << u"Entry saved at 09:05: a.json in /home/me"_s
                               << u"Entry saved on 2026-11-22 at 09:05:07\n/home/me/a.json"_s;
        QTest::newRow("not opened")
            << SaveResult::NotOpened << u"Entry not saved at 09:05: a.json in /home/me"_s
            << u"Entry not saved on 2026-11-22 at 09:05:07\n"
               "/home/me/a.json"_s;
        QTest::newRow("full disk")
            << SaveResult::NotWritten
            << u"Entry not saved at 09:05, the disk did not take it: a.json in /home/me"_s
            << u"Entry not saved on 2026-11-22 at 09:05:07, the disk did not take it\n"
               "/home/me/a.json"_s;
    }

    void savedFileIsTold()
    {
        QFETCH(SaveResult, result);
        const QDateTime when(QDate(2026, 11, 22), QTime(9, 5, 7));
        const SaveReport report = saveReport(u"Entry"_s, u"/home/me/a.json"_s, result, when);
        QTEST(QDir::fromNativeSeparators(report.text).remove(u"C:"_s), "said");
        QTEST(QDir::fromNativeSeparators(report.inFull).remove(u"C:"_s), "inFull");
    }

    void nameWithAPlaceMarkIsToldAsItIs()
    {
        const SaveReport report = saveReport(u"Entry"_s, u"/home/%1/%2.json"_s, SaveResult::Written,
                                             QDateTime::currentDateTime());
        QVERIFY(report.text.contains(u"%2.json in "_s));
        QVERIFY(report.inFull.contains(u"%2.json"_s) && report.inFull.contains(u"%1"_s));
    }
};

QTEST_MAIN(TestStatusTexts)
#include "tst_statustexts.moc"
