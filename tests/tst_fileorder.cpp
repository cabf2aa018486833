// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/fileorder.h"

#include <QLocale>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>
#include <clocale>
#include <iterator>

using namespace Qt::StringLiterals;

/// The order in which the files of a folder are stepped through.
class TestFileOrder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesAreOrderedAsPeopleCount_data()
    {
        QTest::addColumn<QStringList>("fileNames");
        QTest::addColumn<QStringList>("ordered");

        const auto row = [](const char* name, const QStringList& fileNames,
                            const QStringList& ordered) {
            QTest::newRow(name) << fileNames << ordered;
        };
        row("no file", {}, {});
        row("one file", {u"a.json"_s}, {u"a.json"_s});
        row("numbers by value, letters regardless of case",
            {u"a10.json"_s, u"a2.json"_s, u"B1.json"_s},
            {u"a2.json"_s, u"a10.json"_s, u"B1.json"_s});
        row("upper case between lower case", {u"C.json"_s, u"b.json"_s, u"A.json"_s, u"d.json"_s},
            {u"A.json"_s, u"b.json"_s, u"C.json"_s, u"d.json"_s});
        row("file2 before file10",
            {u"file10.json"_s, u"File1.json"_s, u"file2.json"_s, u"FILE3.json"_s},
            {u"File1.json"_s, u"file2.json"_s, u"FILE3.json"_s, u"file10.json"_s});
        row("numbers without letters", {u"100.json"_s, u"9.json"_s, u"20.json"_s},
            {u"9.json"_s, u"20.json"_s, u"100.json"_s});
        row("two numbers in a name",
            {u"C10H8.json"_s, u"C6H14.json"_s, u"C6H6.json"_s, u"C2H4.json"_s},
            {u"C2H4.json"_s, u"C6H6.json"_s, u"C6H14.json"_s, u"C10H8.json"_s});
        row("numbers beyond 64 bits",
            {u"a30000000000000000000000.json"_s, u"a7.json"_s, u"a20000000000000000000000.json"_s},
            {u"a7.json"_s, u"a20000000000000000000000.json"_s, u"a30000000000000000000000.json"_s});
        row("accents beside their letter",
            {u"f.json"_s, QString::fromUtf8("\u00e9thane.json"), u"eau.json"_s},
            {u"eau.json"_s, QString::fromUtf8("\u00e9thane.json"), u"f.json"_s});
        row("names that differ in case only stay as given",
            {u"no.json"_s, u"NO.json"_s, u"No.json"_s}, {u"no.json"_s, u"NO.json"_s, u"No.json"_s});
    }

    void filesAreOrderedAsPeopleCount()
    {
        QFETCH(const QStringList, fileNames);
        QFETCH(const QStringList, ordered);
        QCOMPARE(inSteppingOrder(fileNames), ordered);
    }

    void everyArrangementEndsInTheSameOrder()
    {
        const QStringList ordered{u"a1.json"_s, u"A2.json"_s, u"a10.json"_s, u"b.json"_s,
                                  u"B3.json"_s};
        QStringList arrangement = ordered;
        std::sort(arrangement.begin(), arrangement.end());
        int arrangements = 0;
        do {
            QCOMPARE(inSteppingOrder(arrangement), ordered);
            ++arrangements;
        } while (std::next_permutation(arrangement.begin(), arrangement.end()));
        QCOMPARE(arrangements, 120);
    }

    void orderDoesNotDependOnTheLocale_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("C") << QLocale::c();
        QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany);
        QTest::newRow("Swedish, z before a-umlaut") << QLocale(QLocale::Swedish, QLocale::Sweden);
        QTest::newRow("Danish, upper case first") << QLocale(QLocale::Danish, QLocale::Denmark);
        QTest::newRow("Arabic digits") << QLocale(QLocale::Arabic, QLocale::Egypt);
    }

    void orderDoesNotDependOnTheLocale()
    {
        QFETCH(const QLocale, locale);
        const QLocale before;
        const QByteArray collationBefore = std::setlocale(LC_ALL, nullptr);
        const auto restore = qScopeGuard([&] {
            QLocale::setDefault(before);
            std::setlocale(LC_ALL, collationBefore.constData());
        });
        QLocale::setDefault(locale);
        std::setlocale(LC_ALL, "C");

        const QStringList fileNames{
            u"z.json"_s,  u"a10.json"_s, u"B1.json"_s, QString::fromUtf8("\u00e4.json"),
            u"a2.json"_s, u"aa.json"_s,  u"b02.json"_s};
        const QStringList ordered{QString::fromUtf8("\u00e4.json"),
                                  u"a2.json"_s,
                                  u"a10.json"_s,
                                  u"aa.json"_s,
                                  u"B1.json"_s,
                                  u"b02.json"_s,
                                  u"z.json"_s};
        QCOMPARE(inSteppingOrder(fileNames), ordered);
    }
};

QTEST_MAIN(TestFileOrder)
#include "tst_fileorder.moc"
