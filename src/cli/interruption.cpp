#include "cli/interruption.h"

#include "cli/output.h"

#include <csignal>

namespace headerdtc::cli {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void note(int) {
    interrupted = 1;
}

}  // namespace

Interruption::Interruption() {
    struct sigaction once {};
    once.sa_handler = note;
    once.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &once, &before_);
    // Whoever has told a program in the background to ignore it has meant it.
    if (before_.sa_handler == SIG_IGN) sigaction(SIGINT, &before_, nullptr);
}

Interruption::~Interruption() {
    sigaction(SIGINT, &before_, nullptr);
}

bool Interruption::seen() {
    return interrupted != 0;
}

void tellOfPagesLeft(const SitePages& pages, std::size_t done) {
    printLine(stderr, "interrupted: " + std::to_string(pages.pages.size() - done) + " of " +
                          counted(pages.pages.size(), "page") + " left, from " +
                          pages.pages[done].string() + " on");
}

}  // namespace headerdtc::cli
