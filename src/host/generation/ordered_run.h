#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
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
// there are, 0 one for each core. `tick` is called about ten times a second with the number of
// pieces done so far, and tells whether to go on; otherwise the pieces in work are the last.
// Returns how many were done: the first ones.
template <class Result, class Hire>
std::size_t runWorkers(std::size_t count, int jobs, const Hire& hire,
                       const std::function<void(std::size_t, Result)>& tell,
                       const std::function<bool(std::size_t)>& tick) {
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::optional<Result>> results(count);
    std::size_t next = 0, finished = 0, end = count;

    const Put<Result> put = [&](std::size_t piece, Result result) {
        const std::lock_guard lock(mutex);
        results[piece] = std::move(result);
        ++finished;
        changed.notify_one();
    };
    const auto take = [&]() -> std::optional<std::size_t> {
        const std::lock_guard lock(mutex);
        if (next >= end) return std::nullopt;
        return next++;
    };
    const auto toil = [&] {
        auto worker = hire(put);
        while (const auto piece = take())
            worker.take(*piece);
        worker.end();
    };
    const std::size_t wanted = jobs > 0 ? static_cast<std::size_t>(jobs)
                                        : std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::jthread> threads;
    try {
        while (threads.size() < std::min(wanted, count))
            threads.emplace_back(toil);
    } catch (const std::system_error&) {
        // With fewer threads it takes longer.
        if (threads.empty()) throw;
    }

    std::unique_lock lock(mutex);
    for (std::size_t told = 0; told < end;) {
        while (told < end && results[told]) {
            Result result = std::move(*results[told]);
            results[told].reset();
            lock.unlock();
            tell(told++, std::move(result));
            lock.lock();
        }
        if (!tick(finished)) end = std::min(end, next);
        if (told < end && !results[told]) changed.wait_for(lock, std::chrono::milliseconds(100));
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
    return runWorkers<Result>(
        count, jobs,
        [&](const Put<Result>& put) {
            return Worker{work, put};
        },
        tell, tick);
}

}  // namespace headerdtc
