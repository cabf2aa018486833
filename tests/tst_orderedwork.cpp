// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/orderedwork.h"

#include <QTest>

#include <atomic>

/// Work on all processors, with results in order.
class TestOrderedWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resultsComeInOrder()
    {
        QList<qsizetype> taken;
        OrderedWork<qsizetype>::run(
            1000, [](qsizetype i) { return i * i; },
            [&taken](qsizetype i, qsizetype& square) {
                taken.append(square == i * i ? i : -1);
                return true;
            });
        QCOMPARE(taken.size(), 1000);
        for (qsizetype i = 0; i < taken.size(); ++i)
            QCOMPARE(taken.at(i), i);
    }

    void onlyAFewResultsWait()
    {
        std::atomic<qsizetype> begun = 0;
        qsizetype mostAhead = 0;
        OrderedWork<int>::run(
            500, [&begun](qsizetype) { return ++begun, 0; },
            [&](qsizetype i, int&) {
                mostAhead = std::max(mostAhead, begun - i);
                return true;
            });
        QCOMPARE(begun.load(), 500);
        QVERIFY(mostAhead <= 4 * QThread::idealThreadCount() + 1);
    }

    void whoeverWaitsIsCalled()
    {
        std::atomic<bool> called = false;
        QList<int> taken;
        OrderedWork<int>::run(
            1,
            [&called](qsizetype) {
                while (!called)
                    QThread::yieldCurrentThread();
                return 7;
            },
            [&taken](qsizetype, int& result) {
                taken.append(result);
                return true;
            },
            [&called] { called = true; });
        QCOMPARE(taken, QList<int>{7});
    }

    void workStopsWhenNobodyTakesIt()
    {
        std::atomic<qsizetype> begun = 0;
        qsizetype taken = 0;
        OrderedWork<int>::run(
            100'000, [&begun](qsizetype) { return ++begun, 0; },
            [&taken](qsizetype, int&) { return ++taken < 10; });
        QCOMPARE(taken, 10);
        QVERIFY(begun < 100'000);
    }

    void nothingToDoIsDone()
    {
        bool called = false;
        OrderedWork<int>::run(
            0, [](qsizetype) { return 0; }, [&called](qsizetype, int&) { return called = true; });
        QVERIFY(!called);
    }
};

QTEST_APPLESS_MAIN(TestOrderedWork)
#include "tst_orderedwork.moc"
