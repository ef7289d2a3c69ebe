#include "cli/check_json.h"

namespace headerdtc::cli {
void CheckJson::begin() {
    lines_.begin("check");
}

// What does not apply is left out: a family of what both share, a row of what there is once.
void CheckJson::finding(const Finding& finding) {
    const Remark& remark = finding.remark;
    JsonLines::Json line = {
        {"type", "finding"},    {"rule", finding.rule}, {"severity", nameOf(finding.severity)},
        {"page", finding.page}, {"line", finding.line}, {"control", finding.control}};
    if (remark.family) line["family"] = traitsOf(*remark.family).prefix;
    if (remark.row > 0) line["row"] = remark.row;
    if (!remark.property.empty()) line["property"] = remark.property;
    line["message"] = remark.text;
    line["advice"] = remark.advice;
    lines_.write(line);
}

void CheckJson::failure(const std::string& page, const PageFailure& failure) {
    lines_.write({{"type", "failure"}, {"page", page}, {"message", failure.text}});
}

void CheckJson::end(const CheckTotals& totals) {
    lines_.write({{"type", "summary"},
                  {"pages", totals.pages},
                  {"errors", totals.errors},
                  {"warnings", totals.warnings},
                  {"failed", totals.failed},
                  {"exitStatus", totals.status()}});
}

}  // namespace headerdtc::cli
