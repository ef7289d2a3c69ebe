#include "qt/editor/site/site_run.h"

#include "host/generation/site_pages.h"

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
    SiteGeneration generation(sites_, {.mode = mode_, .guard = LossGuard::RefuseLosses});
    {
        const std::lock_guard lock(mutex_);
        generation_ = &generation;
        if (cancelled_) generation.cancel();
    }
    // Thousands of pages a second are told of in groups.
    std::vector<PageResult> results;
    const auto tellResults = [&] {
        if (results.empty()) return;
        post([this, told = std::exchange(results, {})] { Q_EMIT done(told); });
    };
    const auto all = static_cast<int>(pages.size());
    generation.run(
        pages,
        [&](const SiteGeneration::Done& done) {
            results.push_back(
                {pages[done.index], done.page.verdict, done.written, done.page.messages});
        },
        [&](std::size_t finished) {
            tellResults();
            post([this, finished, all] { Q_EMIT progressed(static_cast<int>(finished), all); });
        });
    tellResults();
    {
        const std::lock_guard lock(mutex_);
        generation_ = nullptr;
    }
    post([this] {
        running_ = false;
        Q_EMIT finished(cancelled_);
    });
}

}  // namespace headerdtc::qt
