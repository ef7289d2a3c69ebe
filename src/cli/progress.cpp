#include "cli/progress.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace headerdtc::cli {
namespace {

constexpr int BarWidth = 30;
constexpr std::chrono::milliseconds BetweenShows{100};

}  // namespace

Progress::Progress(std::size_t pages, bool quiet)
    : pages_(pages), wanted_(!quiet && isatty(STDERR_FILENO) != 0) {}

void Progress::show(std::size_t finished) {
    const auto now = Clock::now();
    if (!wanted_ || pages_ == 0 || now - shown_ < BetweenShows) return;
    shown_ = now;
    visible_ = true;
    const double seconds = std::chrono::duration<double>(now - begin_).count();
    const double rate = static_cast<double>(finished) / std::max(seconds, 1e-3);
    const double left = rate > 0 ? static_cast<double>(pages_ - finished) / rate : 0;
    const auto filled = static_cast<std::size_t>(BarWidth) * finished / pages_;
    const std::string bar = std::string(filled, '#') + std::string(BarWidth - filled, '.');
    std::fprintf(stderr, "\r[%s] %zu of %zu pages, %.0f a second, %.0f s left \033[K", bar.c_str(),
                 finished, pages_, rate, left);
    std::fflush(stderr);
}

void Progress::hide() {
    if (!visible_) return;
    visible_ = false;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
}

void Progress::end(const std::string& summary) {
    hide();
    if (wanted_) std::fprintf(stderr, "%s\n", summary.c_str());
}

}  // namespace headerdtc::cli
