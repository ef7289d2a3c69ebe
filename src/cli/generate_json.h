#pragma once

#include "cli/generate_report.h"
#include "cli/json_lines.h"

namespace headerdtc::cli {

// For programs: a JSON object for each page, docs/schemas/generate.schema.json.
class GenerateJson : public GenerateReport {
  public:
    GenerateJson(Sites& sites, const GenerateOptions& options) : sites_(sites), options_(options) {}

    void begin() override;
    void problem(const std::string& text) override;
    void page(const std::string& page, bool named, const SiteGeneration::Done& done) override;
    void end(const GenerateTotals& totals) override;

  private:
    std::string diffOf(const std::string& page, const GeneratedPage& made);

    Sites& sites_;
    const GenerateOptions& options_;
    JsonLines lines_;
};

}  // namespace headerdtc::cli
