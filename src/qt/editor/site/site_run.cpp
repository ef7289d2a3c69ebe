#include "qt/editor/site/site_run.h"

#include "host/generation/ordered_run.h"
#include "host/generation/site_pages.h"
#include "qt/surface/text.h"

#include <QMetaObject>
#include <QStringList>
#include <utility>

namespace headerdtc::qt {

namespace fs = std::filesystem;

SiteRun::SiteRun(Sites& sites, QObject* parent) : QObject(parent), sites_(sites) {}

SiteRun::~SiteRun() {
    cancel();
    if (worker_.joinable()) worker_.join();
}

void SiteRun::begin(Mode mode) {
    if (worker_.joinable()) worker_.join();
    mode_ = mode;
    running_ = true;
    cancelled_ = false;
}

void SiteRun::start(const fs::path& folder, Mode mode) {
    if (running_) return;
    begin(mode);
    worker_ = std::thread([this, folder] {
        const SitePages site = findSitePages({folder.string()});
        QStringList problems;
        for (const auto& problem : site.problems)
            problems += QString::fromStdString(problem.text());
        post([this, pages = site.pages, problems] { Q_EMIT found(pages, problems); });
        work(site.pages);
    });
}

void SiteRun::start(std::vector<fs::path> pages, Mode mode) {
    if (running_) return;
    begin(mode);
    worker_ = std::thread([this, pages = std::move(pages)] { work(pages); });
}

void SiteRun::cancel() {
    cancelled_ = true;
    const std::lock_guard lock(mutex_);
    if (generation_) generation_->cancel();
}

// To the thread of the windows; forgotten when this is gone by then.
template <class Tell>
void SiteRun::post(Tell tell) {
    QMetaObject::invokeMethod(this, std::move(tell), Qt::QueuedConnection);
}

void SiteRun::work(const std::vector<fs::path>& pages) {
    if (mode_ == Mode::Check) {
        check(pages);
    } else {
        generate(pages);
    }
    tellResults();
    post([this] {
        running_ = false;
        Q_EMIT finished(cancelled_);
    });
}

// Thousands of pages a second are told of in groups.
void SiteRun::tellResults() {
    if (results_.empty()) return;
    post([this, told = std::exchange(results_, {})] { Q_EMIT done(told); });
}

void SiteRun::tellProgress(std::size_t finished, std::size_t all) {
    tellResults();
    post([this, finished, all] {
        Q_EMIT progressed(static_cast<int>(finished), static_cast<int>(all));
    });
}

void SiteRun::check(const std::vector<fs::path>& pages) {
    SiteFactsCache facts;
    runInOrder<InspectedPage>(
        pages.size(), 0, [&](std::size_t page) { return inspectPage(pages[page], sites_, facts); },
        [&](std::size_t page, const InspectedPage& inspected) {
            results_.push_back(
                {pages[page], inspected.verdict, false, messagesOf(pages[page], inspected)});
        },
        [&](std::size_t finished) {
            tellProgress(finished, pages.size());
            return !cancelled_;
        });
}

void SiteRun::generate(const std::vector<fs::path>& pages) {
    SiteFactsCache facts;
    SiteGeneration generation(sites_, {.mode = mode_, .guard = LossGuard::RefuseLosses});
    {
        const std::lock_guard lock(mutex_);
        generation_ = &generation;
        if (cancelled_) generation.cancel();
    }
    generation.run(
        pages,
        [&](const SiteGeneration::Done& done) {
            const fs::path& page = pages[done.index];
            PageResult result{page, done.page.verdict, done.written, {}};
            if (done.page.verdict == GeneratedPage::Verdict::NotReadable) {
                result.messages.push_back(
                    {Message::Severity::Error, toQt(done.page.messages.back()), page, {}});
            } else if (!done.page.messages.empty()) {
                // What a generation reports is told in the words of a check.
                result.messages = messagesOf(page, inspectPage(page, sites_, facts));
            }
            results_.push_back(std::move(result));
        },
        [&](std::size_t finished) { tellProgress(finished, pages.size()); });
    const std::lock_guard lock(mutex_);
    generation_ = nullptr;
}

}  // namespace headerdtc::qt
