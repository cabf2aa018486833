// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/fileorder.h"

#include <QLocale>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>
#include <clocale>
#include <iterator>

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
        row("one file", {QStringLiteral("a.json")}, {QStringLiteral("a.json")});
        row("numbers by value, letters regardless of case",
            {QStringLiteral("a10.json"), QStringLiteral("a2.json"), QStringLiteral("B1.json")},
            {QStringLiteral("a2.json"), QStringLiteral("a10.json"), QStringLiteral("B1.json")});
        row("upper case between lower case",
            {QStringLiteral("C.json"), QStringLiteral("b.json"), QStringLiteral("A.json"),
             QStringLiteral("d.json")},
            {QStringLiteral("A.json"), QStringLiteral("b.json"), QStringLiteral("C.json"),
             QStringLiteral("d.json")});
        row("file2 before file10",
            {QStringLiteral("file10.json"), QStringLiteral("File1.json"),
             QStringLiteral("file2.json"), QStringLiteral("FILE3.json")},
            {QStringLiteral("File1.json"), QStringLiteral("file2.json"),
             QStringLiteral("FILE3.json"), QStringLiteral("file10.json")});
        row("numbers without letters",
            {QStringLiteral("100.json"), QStringLiteral("9.json"), QStringLiteral("20.json")},
            {QStringLiteral("9.json"), QStringLiteral("20.json"), QStringLiteral("100.json")});
        row("two numbers in a name",
            {QStringLiteral("C10H8.json"), QStringLiteral("C6H14.json"),
             QStringLiteral("C6H6.json"), QStringLiteral("C2H4.json")},
            {QStringLiteral("C2H4.json"), QStringLiteral("C6H6.json"), QStringLiteral("C6H14.json"),
             QStringLiteral("C10H8.json")});
        row("numbers beyond 64 bits",
            {QStringLiteral("a30000000000000000000000.json"), QStringLiteral("a7.json"),
             QStringLiteral("a20000000000000000000000.json")},
            {QStringLiteral("a7.json"), QStringLiteral("a20000000000000000000000.json"),
             QStringLiteral("a30000000000000000000000.json")});
        row("accents beside their letter",
            {QStringLiteral("f.json"), QString::fromUtf8("\u00e9thane.json"),
             QStringLiteral("eau.json")},
            {QStringLiteral("eau.json"), QString::fromUtf8("\u00e9thane.json"),
             QStringLiteral("f.json")});
        row("names that differ in case only stay as given",
            {QStringLiteral("no.json"), QStringLiteral("NO.json"), QStringLiteral("No.json")},
            {QStringLiteral("no.json"), QStringLiteral("NO.json"), QStringLiteral("No.json")});
    }

    void filesAreOrderedAsPeopleCount()
    {
        QFETCH(const QStringList, fileNames);
        QFETCH(const QStringList, ordered);
        QCOMPARE(inSteppingOrder(fileNames), ordered);
    }

    void everyArrangementEndsInTheSameOrder()
    {
        const QStringList ordered{QStringLiteral("a1.json"), QStringLiteral("A2.json"),
                                  QStringLiteral("a10.json"), QStringLiteral("b.json"),
                                  QStringLiteral("B3.json")};
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

        const QStringList fileNames{QStringLiteral("z.json"),  QStringLiteral("a10.json"),
                                    QStringLiteral("B1.json"), QString::fromUtf8("\u00e4.json"),
                                    QStringLiteral("a2.json"), QStringLiteral("aa.json"),
                                    QStringLiteral("b02.json")};
        const QStringList ordered{QString::fromUtf8("\u00e4.json"), QStringLiteral("a2.json"),
                                  QStringLiteral("a10.json"),       QStringLiteral("aa.json"),
                                  QStringLiteral("B1.json"),        QStringLiteral("b02.json"),
                                  QStringLiteral("z.json")};
        QCOMPARE(inSteppingOrder(fileNames), ordered);
    }
};

QTEST_MAIN(TestFileOrder)
#include "tst_fileorder.moc"
