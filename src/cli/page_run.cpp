#include "cli/page_run.h"

#include "cli/streams.h"
#include "host/files/file_error.h"
#include "host/site/site.h"
#include "platform/text.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <csignal>
#include <cstdio>

namespace headerdtc::cli {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr const char* PlainInShells =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_./-+,:@%";

constexpr int BarWidth = 30;
constexpr std::chrono::milliseconds BetweenShows{100};
// Before this, what the first pages of a site read for all of them makes a wrong estimate.
constexpr Seconds BeforeAnEstimate{2};

volatile std::sig_atomic_t noted = 0;

void noteInterruption(int) {
    noted = 1;
}

std::vector<std::string> listedIn(const std::string& file) {
    std::vector<std::string> paths;
    if (file.empty()) return paths;
    const std::string text = readInput(file);
    // Names that may have anything in them are ended by zeros, as find -print0 writes them.
    const bool hasZeros = text.find('\0') != std::string::npos;
    for (std::string_view line : splitText(text, hasZeros ? std::string_view("\0", 1) : "\n")) {
        if (!hasZeros && line.ends_with('\r')) line.remove_suffix(1);
        if (!line.empty()) paths.emplace_back(line);
    }
    return paths;
}

}  // namespace

SitePages PathList::pages() const try {
    return findSitePages(words, listedIn(file));
} catch (const FileError& error) {
    throw UsageError(error.what());
}

std::string PathList::inWords() const {
    std::string text;
    const auto add = [&](const std::string& word) { text += (text.empty() ? "" : " ") + word; };
    const auto quoted = [](const std::string& word) {
        const bool isPlain =
            !word.empty() && word.find_first_not_of(PlainInShells) == std::string::npos;
        return isPlain ? word : "'" + replaceAll(word, "'", "'\\''") + "'";
    };
    if (!file.empty()) add("--files-from " + quoted(file));
    for (const std::string& word : words)
        add(quoted(word));
    return text;
}

CLI::Option* addPathList(CLI::App& command, PathList& paths, const std::string& description) {
    auto* words = command.add_option("PATH", paths.words, description);
    command
        .add_option("--files-from", paths.file,
                    "read further paths from this file, one per line or NUL-separated\n"
                    "(-: standard input)")
        ->type_name(FileType);
    return words;
}

void addRunOptions(CLI::App& command, PageRunOptions& options) {
    command.add_flag("-q,--quiet", options.quiet, "no progress and no summary");
    command.add_option("-j,--jobs", options.jobs, "pages done at a time (default: one a core)")
        ->check(CLI::Range(1, 256));
}

ExitStatus PageTotals::status(bool counts) const {
    if (left > 0) return Interrupted;
    if (misconfigured) return WrongUsage;
    if (failed > 0) return PageNotDone;
    return counts && found > 0 ? CheckFoundSomething : Done;
}

std::shared_ptr<Site> siteOf(Sites& sites, const std::filesystem::path& place) {
    FailureLines().printMissingConfiguration(sites, place);
    return sites.forPage(place);
}

void FailureLines::printMissingConfiguration(Sites& sites, const std::filesystem::path& page) try {
    const auto configuration = sites.forPage(page)->configuration;
    if (!configuration->file.empty() || std::exchange(isMissingSaid_, true)) return;
    printLine(stderr, "there is no headerdtc.toml in " + configuration->folder.string() +
                          " or above it; 'headerdtc init' sets up a site, until then the defaults "
                          "hold");
} catch (const ConfigurationError&) {
    // There is one, and whoever reads it says what is wrong with it.
}

void FailureLines::print(const std::string& page, const PageFailure& failure) {
    using Of = PageFailure::Of;
    if (failure.of == Of::Page) return printMessage(page, failure.text);
    if (failure.of == Of::Site) return count(failure.text);
    if (said_.insert(failure.text).second) printLine(stderr, failure.text);
}

void FailureLines::end(bool isEachSaid) {
    for (const auto& [cause, pages] : causes_) {
        if (pages > 1 || !isEachSaid)
            printLine(stderr, counted(pages, "page") + " " + undone_ + ": " + cause);
    }
    if (!causes_.empty()) printLine(stderr, WhereToLook);
}

// What a person sees and does meanwhile: the progress on a terminal, and Ctrl-C.
class PageRun::Watch {
  public:
    Watch(std::size_t pages, bool quiet) : pages_(pages), wanted_(!quiet && isTerminal(stderr)) {
        struct sigaction once {};
        once.sa_handler = noteInterruption;
        once.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
        sigaction(SIGINT, &once, &before_);
        // Whoever has told a program in the background to ignore it has meant it.
        if (before_.sa_handler == SIG_IGN) sigaction(SIGINT, &before_, nullptr);
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch() { sigaction(SIGINT, &before_, nullptr); }

    void show(std::size_t finished) {
        const auto now = Clock::now();
        if (!wanted_ || now - shown_ < BetweenShows) return;
        shown_ = now;
        visible_ = true;
        const Seconds passed = now - begin_;
        const double rate = static_cast<double>(finished) / passed.count();
        const auto filled = static_cast<std::size_t>(BarWidth) * finished / pages_;
        const std::string bar = std::string(filled, '#') + std::string(BarWidth - filled, '.');
        std::fprintf(stderr, "\r[%s] %zu of %zu pages, %.0f a second", bar.c_str(), finished,
                     pages_, rate);
        if (passed >= BeforeAnEstimate && finished > 0)
            std::fprintf(stderr, ", %.0f s left", static_cast<double>(pages_ - finished) / rate);
        std::fputs(" \033[K", stderr);
        std::fflush(stderr);
    }

    // Makes room for a line of output; the next show() brings the bar back.
    void hide() {
        if (!visible_) return;
        visible_ = false;
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
    }

    void end(const std::string& summary) {
        hide();
        if (wanted_ && !summary.empty()) printLine(stderr, summary);
    }

  private:
    std::size_t pages_;
    bool wanted_;
    bool visible_ = false;
    Clock::time_point begin_ = Clock::now();
    Clock::time_point shown_ = begin_;
    struct sigaction before_ {};
};

PageRun::PageRun(const PageRunOptions& options, Fail fail)
    : site_(options.paths.pages()),
      jobs_(options.jobs),
      tellsOfNone_(!options.quiet && !options.paths.words.empty()),
      fail_(std::move(fail)) {
    totals_.left = pages().size();
    for (const auto& problem : site_.problems)
        this->fail(problem.path, {PageFailure::Of::Page, problem.reason});
    watch_ = std::make_unique<Watch>(pages().size(), options.quiet);
}

PageRun::~PageRun() = default;

PageRun::Page PageRun::come(std::size_t page) {
    watch_->hide();
    ++totals_.pages;
    --totals_.left;
    return {pages()[page].string(), site_.named[page]};
}

bool PageRun::goesOn(std::size_t finished) {
    watch_->show(finished);
    return !interrupted();
}

bool PageRun::interrupted() {
    return noted != 0;
}

void PageRun::fail(const std::string& page, const PageFailure& failure) {
    ++totals_.failed;
    if (failure.of == PageFailure::Of::Configuration) totals_.misconfigured = true;
    fail_(page, failure);
}

void PageRun::end(const std::string& summary) {
    watch_->end(summary);
    if (tellsOfNone_ && totals_.failed == 0 && pages().empty())
        printLine(stderr, "there is no page (*.asp, *.inc)");
    if (totals_.left == 0) return;
    printLine(stderr, "interrupted: " + std::to_string(totals_.left) + " of " +
                          counted(pages().size(), "page") + " left, from " +
                          pages()[totals_.pages].string() + " on");
}

}  // namespace headerdtc::cli
