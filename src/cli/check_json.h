#pragma once

#include "cli/check_report.h"
#include "cli/json_lines.h"

namespace headerdtc::cli {

// For programs: a JSON object for each finding, docs/schemas/check.schema.json.
class CheckJson : public CheckReport {
  public:
    void begin() override;
    void finding(const Finding& finding) override;
    void failure(const std::string& page, const PageFailure& failure) override;
    void end(const CheckTotals& totals) override;

  private:
    JsonLines lines_;
};

}  // namespace headerdtc::cli
