#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace headerdtc {

// Where a worker puts the result of a piece of work.
template <class Result>
using Put = std::function<void(std::size_t piece, Result)>;

// Does `count` pieces of work side by side and tells their results in order, on the calling
// thread. `hire` is called once on each thread and makes its worker: `take(piece)` does a piece,
// whose result may be put later; `end()` puts what is held back. Neither throws. `jobs` is how many
// there are, 0 one for each core; each is at most `ahead` pieces ahead of what is told, so that
// results do not gather. `tick` is called about ten times a second with the number of pieces done
// so far, and tells whether to go on; otherwise the pieces in work are the last. Returns how many
// were done: the first ones.
template <class Result, class Hire>
std::size_t runWorkers(std::size_t count, int jobs, std::size_t ahead, const Hire& hire,
                       const std::function<void(std::size_t, Result)>& tell,
                       const std::function<bool(std::size_t)>& tick) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds BetweenTicks{100};
    const std::size_t wanted = jobs > 0 ? static_cast<std::size_t>(jobs)
                                        : std::max(1U, std::thread::hardware_concurrency());
    std::mutex mutex;
    std::condition_variable changed;
    std::condition_variable_any room;
    std::vector<std::optional<Result>> results(count);
    std::size_t next = 0, finished = 0, told = 0, end = count;

    const Put<Result> put = [&](std::size_t piece, Result result) {
        const std::lock_guard lock(mutex);
        results[piece] = std::move(result);
        ++finished;
        changed.notify_one();
    };
    const std::size_t most = wanted * ahead;
    const auto hasRoom = [&] { return next >= end || next < told + most; };
    // A worker that waits for room is woken only when there is enough of it.
    const auto hasMuchRoom = [&] { return next >= end || next <= told + most / 2; };
    const auto toil = [&](const std::stop_token& stop) {
        auto worker = hire(put);
        std::unique_lock lock(mutex);
        for (;;) {
            if (!hasRoom()) {
                // The result that is told next may be one that this worker holds back.
                lock.unlock();
                worker.end();
                lock.lock();
                room.wait(lock, stop, hasMuchRoom);
            }
            // All is done, or nobody waits for the results any more.
            if (next >= end || stop.stop_requested()) break;
            const std::size_t piece = next++;
            lock.unlock();
            worker.take(piece);
            lock.lock();
        }
        lock.unlock();
        worker.end();
    };
    std::vector<std::jthread> threads;
    try {
        while (threads.size() < std::min(wanted, count))
            threads.emplace_back(toil);
    } catch (const std::system_error&) {
        // No more threads: the ones that there are do all of it.
        if (threads.empty()) throw;
    }

    std::unique_lock lock(mutex);
    while (told < end) {
        const auto ticksAt = Clock::now() + BetweenTicks;
        while (told < end && results[told] && Clock::now() < ticksAt) {
            Result result = std::move(*results[told]);
            results[told].reset();
            lock.unlock();
            tell(told, std::move(result));
            lock.lock();
            ++told;
            if (next == told + most / 2) room.notify_all();
        }
        if (!tick(finished)) {
            end = std::min(end, next);
            room.notify_all();
        }
        if (told < end && !results[told]) changed.wait_until(lock, ticksAt);
    }
    return end;
}

// The same for work whose result is there at once. `work` is called from several threads and does
// not throw.
template <class Result>
std::size_t runInOrder(std::size_t count, int jobs, const std::function<Result(std::size_t)>& work,
                       const std::function<void(std::size_t, Result)>& tell,
                       const std::function<bool(std::size_t)>& tick) {
    struct Worker {
        const std::function<Result(std::size_t)>& work;
        const Put<Result>& put;
        void take(std::size_t piece) { put(piece, work(piece)); }
        void end() {}
    };
    constexpr std::size_t Ahead = 32;
    return runWorkers<Result>(
        count, jobs, Ahead,
        [&](const Put<Result>& put) {
            return Worker{work, put};
        },
        tell, tick);
}

}  // namespace headerdtc
