#pragma once

#include "cli/commands.h"
#include "host/generation/site_generation.h"
#include "host/generation/site_pages.h"

#include <cstddef>
#include <memory>
#include <string>

namespace headerdtc::cli {

// What a run over many pages came to.
struct GenerateTotals {
    std::size_t pages = 0;   // looked at
    std::size_t stale = 0;   // out of date with --check, else written
    std::size_t failed = 0;  // not done
    std::size_t left = 0;    // not come to, when it was interrupted
    bool misconfigured = false;

    void add(GeneratedPage::Verdict verdict);
    // Failing outranks being out of date, wrong configuration both.
    ExitStatus status(const GenerateOptions& options) const;
    std::string summary(const GenerateOptions& options) const;
};

// How a run is told: one class for each form of output.
class GenerateReport {
  public:
    virtual ~GenerateReport() = default;
    virtual void begin() {}
    // A path that could not be looked into.
    virtual void problem(const std::string& text) = 0;
    // `named`: the page was named in so many words, rather than found below a folder.
    virtual void page(const std::string& page, bool named, const SiteGeneration::Done& done) = 0;
    virtual void end(const GenerateTotals&) {}
};

// The form that the options ask for. Sites and options outlive it.
std::unique_ptr<GenerateReport> makeGenerateReport(Sites& sites, const GenerateOptions& options);

}  // namespace headerdtc::cli
