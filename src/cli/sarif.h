#pragma once

#include "cli/check_report.h"
#include "cli/json_lines.h"

namespace headerdtc::cli {

// For tools that gather the results of checks: one SARIF 2.1.0 log on standard output, written at
// the end. Pages below the working folder are named relative to it.
class SarifReport : public CheckReport {
  public:
    void finding(const Finding& finding) override;
    void failure(const std::string& page, const PageFailure& failure) override;
    void end(const CheckTotals& totals) override;

  private:
    using Json = JsonLines::Json;

    Json results_ = Json::array();
    Json notifications_ = Json::array();
};

}  // namespace headerdtc::cli
