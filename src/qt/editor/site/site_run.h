#pragma once

#include "host/generation/site_generation.h"
#include "qt/editor/base/message.h"

#include <QObject>
#include <filesystem>
#include <memory>
#include <thread>
#include <vector>

namespace headerdtc::qt {

// What became of a page of a site.
struct PageResult {
    std::filesystem::path page;
    GeneratedPage::Verdict verdict = GeneratedPage::Verdict::NoControl;
    bool written = false;
    std::vector<Message> messages;
};

// Checks pages of a site by the rules of `headerdtc check`, or generates them, on another thread.
// One run at a time.
class SiteRun : public QObject {
    Q_OBJECT

  public:
    using Mode = SiteGeneration::Mode;

    explicit SiteRun(Sites& sites, QObject* parent = nullptr);
    ~SiteRun() override;

    // Looks for the pages below a folder and does them all.
    void start(const std::filesystem::path& folder, Mode mode);
    // Does these pages.
    void start(std::vector<std::filesystem::path> pages, Mode mode);
    bool isRunning() const { return running_; }
    Mode mode() const { return mode_; }
    // Ends after the pages that are being worked on; finished ones stay as they are.
    void cancel();

  Q_SIGNALS:
    // The pages found below the folder, and what could not be looked into.
    void found(const std::vector<std::filesystem::path>& pages, const QStringList& problems);
    void progressed(int finished, int all);
    void done(const std::vector<headerdtc::qt::PageResult>& results);
    void finished(bool cancelled);

  private:
    void begin(Mode mode);
    void work(const std::vector<std::filesystem::path>& pages);
    void check(const std::vector<std::filesystem::path>& pages);
    void generate(const std::vector<std::filesystem::path>& pages);
    void tellResults();
    void tellProgress(std::size_t finished, std::size_t all);
    template <class Tell>
    void post(Tell tell);

    Sites& sites_;
    Mode mode_ = Mode::Check;
    bool running_ = false;
    std::atomic<bool> cancelled_ = false;
    std::mutex mutex_;                      // of generation_
    SiteGeneration* generation_ = nullptr;  // the one at work
    std::vector<PageResult> results_;       // not told yet; of the worker
    std::thread worker_;
};

}  // namespace headerdtc::qt
