#pragma once

#include "host/generation/page_generation.h"

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

namespace headerdtc {

// Generates many pages side by side.
class SiteGeneration {
  public:
    enum class Mode { Check, Write };
    struct Options {
        Mode mode = Mode::Write;
        LossGuard guard = LossGuard::RefuseLosses;
        int jobs = 0;  // pages done at a time; 0: one for each core
        // Whether finished pages keep their bytes for whoever is told of them.
        bool keepBytes = false;
    };
    // What became of a page; written: its file was replaced.
    struct Done {
        std::size_t index = 0;
        GeneratedPage page;
        bool written = false;
    };

    SiteGeneration(Sites& sites, Options options) : sites_(sites), options_(options) {}

    // Tells of every page in the order given, on the calling thread; `tick` is called about ten
    // times a second with the number of pages finished so far. Pages are written in groups, so a
    // page may be told of some time after it was made.
    void run(const std::vector<std::filesystem::path>& pages,
             const std::function<void(const Done&)>& tell,
             const std::function<void(std::size_t)>& tick = {});
    // Ends the run after the pages in work; may be called from any thread.
    void cancel() { cancelled_ = true; }

  private:
    class Worker;

    Sites& sites_;
    Options options_;
    std::atomic<bool> cancelled_ = false;
};

}  // namespace headerdtc
