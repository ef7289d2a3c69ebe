#pragma once

#include "cli/page_run.h"
#include "host/inspection/rules/rule_settings.h"

#include <cstddef>
#include <memory>
#include <string>

namespace headerdtc::cli {

// Tells the rules, a line each: those of pages, or those of translations too.
void listRules(bool ofTranslations);
// "error", "warning"; "text" of a rule of translations.
std::string kindOf(const RuleText& rule);

// How the findings of a check are told: one class for each form of output.
class CheckReport {
  public:
    enum class Form { Text, Json, Sarif };
    static std::unique_ptr<CheckReport> make(Form form);

    virtual ~CheckReport() = default;
    virtual void begin() {}
    virtual void finding(const Finding& finding) = 0;
    // A page, or a path, that could not be checked.
    virtual void failure(const std::string& page, const PageFailure& failure,
                         FailureLines& lines) = 0;
    // Of what was found, so many are errors; the others are warnings.
    virtual void end(const PageTotals&, std::size_t /*errors*/) {}
};

}  // namespace headerdtc::cli
