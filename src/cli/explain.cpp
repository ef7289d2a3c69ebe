#include "cli/check_report.h"
#include "cli/command.h"
#include "cli/streams.h"
#include "platform/nearest_name.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

namespace headerdtc::cli {
namespace {

constexpr std::size_t LineLength = 80;

struct ExplainOptions {
    std::string rule;
};

void printParagraph(std::string_view text) {
    while (text.size() > LineLength) {
        const auto end = text.rfind(' ', LineLength);
        printLine(stdout, text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    printLine(stdout, text);
}

ExitStatus explain(const CommonOptions&, const ExplainOptions& options) {
    const auto rules = allRules();
    if (options.rule.empty()) {
        listRules(true);
        return Done;
    }
    const auto rule = std::find_if(rules.begin(), rules.end(),
                                   [&](const auto& each) { return each.id == options.rule; });
    if (rule == rules.end()) {
        NearestName nearest(options.rule);
        for (const RuleText& each : rules)
            nearest.offer(each.id);
        throw UsageError("there is no rule '" + options.rule + "'" + nearest.question());
    }
    printLine(stdout, options.rule + ", " +
                          (rule->severity ? kindOf(*rule) + " of 'check'"
                                          : "found by 'translations check'") +
                          ": " + std::string(rule->summary) + "\n");
    printParagraph(rule->explanation);
    const bool isError = rule->severity == Severity::Error;
    printLine(stdout,
              "\nA site that lives with it has " + options.rule + " = \"off\"" +
                  (rule->severity ? isError ? " (or \"warning\")" : " (or \"error\")" : "") +
                  " below [check] in headerdtc.toml.");
    return Done;
}

}  // namespace

void addExplain(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<ExplainOptions>();
    CLI::App& command =
        addCommand(app, "explain", "Tell what a rule of the checks finds, why, and what to do",
                   R"(Examples:
  headerdtc explain                        all rules, of pages and of translated texts
  headerdtc explain unknown-field

Exit status: 0 done, 2 there is no such rule.)");
    command.add_option("RULE", options->rule, "the rule (default: all, a line each)");
    command.callback(whenNamed(line, options, explain));
}

}  // namespace headerdtc::cli
