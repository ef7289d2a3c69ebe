#include "qt/editor/site/site_run.h"

#include "host/generation/site_pages.h"
#include "host/generation/ordered_run.h"
#include "host/inspection/rules/page_inspection.h"

#include <QMetaObject>
#include <QStringList>
#include <set>
#include <utility>

namespace headerdtc::qt {

namespace fs = std::filesystem;

namespace {

using Verdict = GeneratedPage::Verdict;

Message errorOf(const fs::path& page, const std::string& text) {
    return {Message::Severity::Error, QString::fromStdString(text), page, {}};
}

}  // namespace

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
    std::set<std::string> told;  // what a whole site lacks is said once
    runInOrder<InspectedPage>(
        pages.size(), 0, [&](std::size_t page) { return inspectPage(pages[page], sites_, facts); },
        [&](std::size_t page, const InspectedPage& inspected) {
            PageResult result{pages[page], inspected.verdict, false, {}};
            for (const Finding& finding : inspected.findings)
                result.messages.push_back(messageOf(finding));
            if (inspected.failure) {
                if (result.verdict < Verdict::LeftAlone) result.verdict = Verdict::LeftAlone;
                const bool isPages = inspected.failure->of == PageFailure::Of::Page;
                if (isPages || told.insert(inspected.failure->text).second)
                    result.messages.push_back(errorOf(pages[page], inspected.failure->text));
            }
            results_.push_back(std::move(result));
        },
        [&](std::size_t finished) {
            tellProgress(finished, pages.size());
            return !cancelled_;
        });
}

void SiteRun::generate(const std::vector<fs::path>& pages) {
    SiteGeneration generation(sites_, {.mode = mode_, .guard = LossGuard::RefuseLosses});
    {
        const std::lock_guard lock(mutex_);
        generation_ = &generation;
        if (cancelled_) generation.cancel();
    }
    generation.run(
        pages,
        [&](const SiteGeneration::Done& done) {
            PageResult result{pages[done.index], done.page.verdict, done.written, {}};
            for (const std::string& text : done.page.messages) {
                // The reason for a bad verdict stands last.
                const bool isReason = done.page.isFailure() && &text == &done.page.messages.back();
                result.messages.push_back(errorOf(pages[done.index], text));
                if (!isReason) result.messages.back().severity = Message::Severity::Warning;
            }
            results_.push_back(std::move(result));
        },
        [&](std::size_t finished) { tellProgress(finished, pages.size()); });
    const std::lock_guard lock(mutex_);
    generation_ = nullptr;
}

}  // namespace headerdtc::qt
