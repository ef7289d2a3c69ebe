#include "host/generation/site_generation.h"

#include "host/files/file_replacer.h"
#include "host/files/new_file.h"
#include "host/generation/ordered_run.h"

namespace headerdtc {
namespace {

// Flushing a group costs little more than flushing one page; a group that is too large would keep
// finished pages waiting.
constexpr std::size_t PagesOfAGroup = 128;
constexpr std::size_t GroupsAhead = 4;

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

// Generates pages one after the other, and writes them in groups.
class SiteGeneration::Worker {
  public:
    Worker(const SiteGeneration& owner, const std::vector<std::filesystem::path>& pages,
           const Put<Done>& put)
        : owner_(owner), pages_(pages), put_(put) {}

    void take(std::size_t index) {
        Done done{index, generatePage(pages_[index], owner_.sites_, owner_.options_.guard)};
        const bool write = owner_.options_.mode == Mode::Write &&
                           done.page.verdict == GeneratedPage::Verdict::Stale;
        if (!write) return finish(std::move(done));
        try {
            replacer_.replace(pages_[index], done.page.after, done.page.stamp);
        } catch (const FileError& error) {
            fail(done, error.problem());
            return finish(std::move(done));
        }
        dropBytes(done);
        waiting_.push_back(std::move(done));
        if (waiting_.size() >= PagesOfAGroup) end();
    }

    void end() {
        if (waiting_.empty()) return;
        const auto outcomes = replacer_.commit();
        for (std::size_t i = 0; i < waiting_.size(); ++i) {
            waiting_[i].written = outcomes[i].problem.empty();
            if (!waiting_[i].written) fail(waiting_[i], outcomes[i].problem);
            finish(std::move(waiting_[i]));
        }
        waiting_.clear();
    }

  private:
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
        const std::size_t index = done.index;
        put_(index, std::move(done));
    }

    const SiteGeneration& owner_;
    const std::vector<std::filesystem::path>& pages_;
    const Put<Done>& put_;
    FileReplacer replacer_;
    std::vector<Done> waiting_;
};

void SiteGeneration::run(const std::vector<std::filesystem::path>& pages,
                         const std::function<void(const Done&)>& tell,
                         const std::function<void(std::size_t)>& tick) {
    if (cancelled_) return;
    if (options_.mode == Mode::Write) removeStrayFilesBeside(pages);
    runWorkers<Done>(
        pages.size(), options_.jobs, GroupsAhead * PagesOfAGroup,
        [&](const Put<Done>& put) { return Worker(*this, pages, put); },
        [&](std::size_t, const Done& done) { tell(done); },
        [&](std::size_t finished) {
            if (tick) tick(finished);
            return !cancelled_;
        });
}

}  // namespace headerdtc
