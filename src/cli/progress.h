#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace headerdtc::cli {

// Progress of a long run in the last line of a terminal: a bar, pages a second, time left. Nothing
// where standard error is no terminal, or when told to be quiet.
class Progress {
  public:
    Progress(std::size_t pages, bool quiet);

    void show(std::size_t finished);
    // Makes room for a line of output; the next show() brings the bar back.
    void hide();
    // Replaces the bar by a closing line.
    void end(const std::string& summary);

  private:
    using Clock = std::chrono::steady_clock;

    std::size_t pages_;
    bool wanted_;
    bool visible_ = false;
    Clock::time_point begin_ = Clock::now();
    Clock::time_point shown_ = begin_;
};

}  // namespace headerdtc::cli
