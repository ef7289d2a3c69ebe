#include "cli/check_report.h"
#include "cli/command.h"
#include "cli/streams.h"
#include "platform/nearest_name.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <vector>

namespace headerdtc::cli {
namespace {

constexpr std::size_t LineLength = 80;

struct ExplainOptions {
    std::string rule;  // empty: all
    bool json = false;
};

void printParagraph(std::string_view text) {
    while (text.size() > LineLength) {
        const auto end = text.rfind(' ', LineLength);
        printLine(stdout, text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    printLine(stdout, text);
}

void printRule(const RuleText& rule) {
    const std::string id(rule.id);
    printLine(stdout,
              id + ", " +
                  (rule.severity ? kindOf(rule) + " of 'check'" : "found by 'translations check'") +
                  ": " + std::string(rule.summary) + "\n");
    printParagraph(rule.explanation);
    const bool isError = rule.severity == Severity::Error;
    printLine(stdout, "\nTo switch it off for a site: " + id + " = \"off\"" +
                          (rule.severity ? isError ? " (or \"warning\")" : " (or \"error\")" : "") +
                          ", below [check] in headerdtc.toml");
}

void printJson(const std::vector<RuleText>& rules) {
    JsonLines lines;
    lines.begin("explain");
    for (const RuleText& rule : rules)
        lines.write({{"type", "rule"},
                     {"rule", rule.id},
                     {"kind", kindOf(rule)},
                     {"summary", rule.summary},
                     {"explanation", rule.explanation}});
    lines.write({{"type", "summary"}, {"rules", rules.size()}, {"exitStatus", Done}});
}

ExitStatus explain(const CommonOptions&, const ExplainOptions& options) {
    auto rules = allRules();
    NearestName nearest(options.rule);
    for (const RuleText& each : rules)
        nearest.offer(each.id);
    if (!options.rule.empty())
        std::erase_if(rules, [&](const RuleText& each) { return each.id != options.rule; });
    if (rules.empty())
        throw UsageError("there is no rule '" + options.rule + "'" + nearest.question());
    if (options.json) {
        printJson(rules);
    } else if (options.rule.empty()) {
        listRules(true);
    } else {
        printRule(rules.front());
    }
    return Done;
}

}  // namespace

void addExplain(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<ExplainOptions>();
    CLI::App& command =
        addCommand(app, "explain", "Explain a rule of the checks: what it finds, why, what to do",
                   R"(Examples:
  headerdtc explain                        all rules, of pages and of translated texts
  headerdtc explain unknown-field
  headerdtc explain --json                 the same for programs

Exit status: 0 done, 2 there is no such rule.)");
    command.add_option("RULE", options->rule, "the rule (default: all, a line each)");
    command.add_flag("--json", options->json, "one JSON object a rule");
    command.callback(whenNamed(line, options, explain));
}

}  // namespace headerdtc::cli
