#include "cli/check_report.h"

#include "cli/annotations.h"
#include "cli/check_json.h"
#include "cli/failure_lines.h"
#include "cli/output.h"
#include "cli/sarif.h"

namespace headerdtc::cli {
namespace {

// "HeaderDTC1, ZEKO, row 3"
std::string placeOf(const Finding& finding) {
    std::string place = finding.control;
    if (finding.remark.family) place += ", " + std::string(traitsOf(*finding.remark.family).prefix);
    if (finding.remark.row > 0) place += ", row " + std::to_string(finding.remark.row);
    return place;
}

// For people, in the form in which compilers tell: editors find the line.
class TextCheckReport : public CheckReport {
  public:
    void finding(const Finding& finding) override {
        printLine(stdout, visible(finding.page + ":" + std::to_string(finding.line) + ": " +
                                  std::string(nameOf(finding.severity)) + ": " +
                                  finding.remark.text + " [" + std::string(finding.rule) + "]"));
        printLine(stdout, visible("    " + placeOf(finding) + ": " + finding.remark.advice));
    }

    void failure(const std::string& page, const PageFailure& failure) override {
        failures_.print(page, failure);
    }

  private:
    FailureLines failures_;
};

}  // namespace

ExitStatus CheckTotals::status() const {
    if (left > 0) return Interrupted;
    if (misconfigured) return WrongUsage;
    if (failed > 0) return PageNotDone;
    return errors + warnings > 0 ? CheckFoundSomething : Done;
}

std::string CheckTotals::summary() const {
    return counted(pages, "page") + " looked at: " + counted(errors, "error") + ", " +
           counted(warnings, "warning") + ", " + std::to_string(failed) + " not checked";
}

std::unique_ptr<CheckReport> makeCheckReport(const CheckOptions& options) {
    if (options.json) return std::make_unique<CheckJson>();
    if (options.sarif) return std::make_unique<SarifReport>();
    if (options.annotations) return std::make_unique<AnnotationReport>();
    return std::make_unique<TextCheckReport>();
}

}  // namespace headerdtc::cli
