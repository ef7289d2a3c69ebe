#include "host/generation/site_generation.h"

#include "host/files/file_replacer.h"
#include "host/files/stray_files.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace headerdtc {
namespace {

// Flushing a group costs little more than flushing one page; a group that is too large would keep
// finished pages waiting.
constexpr std::size_t PagesOfAGroup = 128;

// What a killed run left beside pages goes even where this one has nothing to write.
void removeStrayFilesBeside(const std::vector<std::filesystem::path>& pages) {
    std::filesystem::path last;
    for (const auto& page : pages) {
        auto folder = std::filesystem::absolute(page).parent_path();
        if (folder == last) continue;
        removeStrayFiles(folder);
        last = std::move(folder);
    }
}

}  // namespace

// Where the workers take their pages from and put what became of them.
struct SiteGeneration::Board {
    explicit Board(const std::vector<std::filesystem::path>& all)
        : pages(all), results(all.size()) {}

    const std::vector<std::filesystem::path>& pages;
    std::atomic<std::size_t> next = 0;

    std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::optional<Done>> results;  // by page, until told
    std::size_t finished = 0;
    std::size_t workers = 0;

    void put(Done done) {
        const std::lock_guard lock(mutex);
        const std::size_t index = done.index;
        results[index] = std::move(done);
        ++finished;
        changed.notify_one();
    }
};

class SiteGeneration::Worker {
  public:
    Worker(SiteGeneration& owner, Board& board) : owner_(owner), board_(board) {}

    void work() {
        while (!owner_.cancelled_) {
            const std::size_t index = board_.next++;
            if (index >= board_.pages.size()) break;
            take({index, generatePage(board_.pages[index], owner_.sites_, owner_.options_.guard)});
        }
        commit();
        const std::lock_guard lock(board_.mutex);
        --board_.workers;
        board_.changed.notify_one();
    }

  private:
    void take(Done done) {
        const bool write = owner_.options_.mode == Mode::Write &&
                           done.page.verdict == GeneratedPage::Verdict::Stale;
        if (!write) return finish(std::move(done));
        try {
            replacer_.replace(board_.pages[done.index], done.page.after, done.page.stamp);
        } catch (const FileError& error) {
            fail(done, error.problem());
            return finish(std::move(done));
        }
        dropBytes(done);
        waiting_.push_back(std::move(done));
        if (waiting_.size() >= PagesOfAGroup) commit();
    }

    void commit() {
        if (waiting_.empty()) return;
        const auto outcomes = replacer_.commit();
        for (std::size_t i = 0; i < waiting_.size(); ++i) {
            waiting_[i].written = outcomes[i].problem.empty();
            if (!waiting_[i].written) fail(waiting_[i], outcomes[i].problem);
            finish(std::move(waiting_[i]));
        }
        waiting_.clear();
    }

    static void fail(Done& done, const std::string& problem) {
        done.page.verdict = GeneratedPage::Verdict::NotReadable;
        done.page.messages.push_back(problem);
    }

    void dropBytes(Done& done) const {
        if (owner_.options_.keepBytes) return;
        done.page.before = {};
        done.page.after = {};
    }

    void finish(Done done) {
        dropBytes(done);
        board_.put(std::move(done));
    }

    SiteGeneration& owner_;
    Board& board_;
    FileReplacer replacer_;
    std::vector<Done> waiting_;
};

void SiteGeneration::run(const std::vector<std::filesystem::path>& pages,
                         const std::function<void(const Done&)>& tell,
                         const std::function<void(std::size_t)>& tick) {
    if (options_.mode == Mode::Write) removeStrayFilesBeside(pages);
    Board board(pages);
    std::size_t jobs = options_.jobs > 0 ? static_cast<std::size_t>(options_.jobs)
                                         : std::max(1U, std::thread::hardware_concurrency());
    jobs = std::clamp<std::size_t>(jobs, 1, std::max<std::size_t>(1, pages.size()));
    board.workers = jobs;
    std::vector<std::jthread> threads;
    try {
        while (threads.size() < jobs)
            threads.emplace_back([this, &board] { Worker(*this, board).work(); });
    } catch (const std::system_error&) {
        // With fewer threads it takes longer.
        if (threads.empty()) throw;
    }

    std::unique_lock lock(board.mutex);
    board.workers -= jobs - threads.size();
    for (std::size_t told = 0;;) {
        while (told < pages.size() && board.results[told]) {
            const Done done = std::move(*board.results[told]);
            board.results[told++].reset();
            lock.unlock();
            tell(done);
            lock.lock();
        }
        if (tick) tick(board.finished);
        if (told == pages.size()) break;
        if (board.workers == 0) {
            // Cancelled: what was done is told of, whatever was left out before it.
            while (told < pages.size() && !board.results[told])
                ++told;
            continue;
        }
        board.changed.wait_for(lock, std::chrono::milliseconds(100));
    }
}

}  // namespace headerdtc
