#pragma once

#include "cli/site_commands.h"
#include "host/inspection/finding.h"
#include "host/inspection/page_failure.h"

#include <cstddef>
#include <memory>
#include <string>

namespace headerdtc::cli {

// What checking a site came to.
struct CheckTotals {
    std::size_t pages = 0;  // looked at
    std::size_t errors = 0, warnings = 0;
    std::size_t failed = 0;  // not checked
    std::size_t left = 0;    // not come to, when it was interrupted
    bool misconfigured = false;

    ExitStatus status() const;
    std::string summary() const;
};

// How findings are told: one class for each form of output.
class CheckReport {
  public:
    virtual ~CheckReport() = default;
    virtual void begin() {}
    virtual void finding(const Finding& finding) = 0;
    // A page, or a path, that could not be checked.
    virtual void failure(const std::string& page, const PageFailure& failure) = 0;
    virtual void end(const CheckTotals&) {}
};

std::unique_ptr<CheckReport> makeCheckReport(const CheckOptions& options);

}  // namespace headerdtc::cli
