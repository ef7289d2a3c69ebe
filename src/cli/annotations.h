#pragma once

#include "cli/check_report.h"

namespace headerdtc::cli {

// For build servers that read such lines from a log and show them beside the changed file:
// "::warning file=orders/list.asp,line=12,title=stale::text".
class AnnotationReport : public CheckReport {
  public:
    void finding(const Finding& finding) override;
    void failure(const std::string& page, const PageFailure& failure) override;
};

}  // namespace headerdtc::cli
