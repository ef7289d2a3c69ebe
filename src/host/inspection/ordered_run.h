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

// Does `count` pieces of work side by side and tells their results in order, on the calling
// thread. `work` is called from several threads and does not throw; jobs is how many, 0 one for
// each core. `tick` is called about ten times a second with the number of pieces done so far, and
// tells whether to go on; otherwise the pieces in work are the last. Returns how many were done:
// the first ones.
template <class Result>
std::size_t runInOrder(std::size_t count, int jobs, const std::function<Result(std::size_t)>& work,
                       const std::function<void(std::size_t, Result)>& tell,
                       const std::function<bool(std::size_t)>& tick) {
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::optional<Result>> results(count);
    std::size_t next = 0, finished = 0, end = count;

    const auto toil = [&] {
        for (;;) {
            std::unique_lock lock(mutex);
            if (next >= end) return;
            const std::size_t index = next++;
            lock.unlock();
            Result result = work(index);
            lock.lock();
            results[index] = std::move(result);
            ++finished;
            changed.notify_one();
        }
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

}  // namespace headerdtc
