// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QThread>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

/// Does a piece of work for each number below @p count on all processors, and hands the results to
/// @p take on the calling thread, in the order of the numbers. Only a few results wait at a time,
/// so that memory does not grow with their number. @p take returns false to stop; @p whileWaiting
/// is called now and then as long as there is no result.
template <typename Result>
class OrderedWork
{
public:
    using Work = std::function<Result(qsizetype)>;
    using Take = std::function<bool(qsizetype, Result&)>;
    using Wait = std::function<void()>;

    static void run(
        qsizetype count, const Work& work, const Take& take, const Wait& whileWaiting = [] {})
    {
        const qsizetype threads = std::min<qsizetype>(QThread::idealThreadCount(), count);
        if (threads > 0)
            OrderedWork(count, work, take, whileWaiting).runOn(threads);
    }

private:
    static constexpr std::chrono::milliseconds waitingTime{200};

    OrderedWork(qsizetype pieces, const Work& toDo, const Take& taker, const Wait& waiter)
        : count(pieces)
        , work(toDo)
        , take(taker)
        , wait(waiter)
    {}

    void runOn(qsizetype threads)
    {
        mostAhead = 4 * threads;
        std::vector<std::unique_ptr<QThread>> workers;
        for (qsizetype i = 0; i < threads; ++i) {
            // A thread of Qt's, because work may wait for other programs.
            workers.emplace_back(QThread::create([this] { workOn(); }));
            workers.back()->start();
        }
        takeAll();
        for (const auto& worker : workers)
            worker->wait();
    }

    void workOn()
    {
        std::unique_lock lock(mutex);
        while (true) {
            changed.wait(lock, [this] { return stopped || next < taken + mostAhead; });
            if (stopped || next >= count)
                return;
            const qsizetype piece = next++;
            lock.unlock();
            Result result = work(piece);
            lock.lock();
            results.emplace(piece, std::move(result));
            changed.notify_all();
        }
    }

    void takeAll()
    {
        std::unique_lock lock(mutex);
        while (!stopped && taken < count) {
            while (
                !changed.wait_for(lock, waitingTime, [this] { return results.count(taken) > 0; })) {
                lock.unlock();
                wait();
                lock.lock();
            }
            auto node = results.extract(taken);
            lock.unlock();
            const bool goOn = take(node.key(), node.mapped());
            lock.lock();
            ++taken;
            stopped = !goOn;
            changed.notify_all();
        }
    }

    const qsizetype count;
    const Work& work;
    const Take& take;
    const Wait& wait;
    qsizetype mostAhead = 0;
    std::mutex mutex;
    std::condition_variable changed;
    std::map<qsizetype, Result> results; ///< Done, and not yet taken.
    qsizetype next = 0;                  ///< First piece that nobody has begun.
    qsizetype taken = 0;
    bool stopped = false;
};
