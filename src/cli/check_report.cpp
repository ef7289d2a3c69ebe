#include "cli/check_report.h"

#include "cli/streams.h"
#include "cli/version.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <string_view>

namespace headerdtc::cli {
namespace {

using Json = JsonLines::Json;

// "HeaderDTC1, ZEKO, row 3"
std::string placeOf(const Finding& finding) {
    std::string place = finding.control;
    if (finding.remark.family) place += ", " + std::string(traitsOf(*finding.remark.family).prefix);
    if (finding.remark.row > 0) place += ", row " + std::to_string(finding.remark.row);
    return place;
}

// For people, in the form in which compilers tell: editors find the line.
class CheckText : public CheckReport {
  public:
    void finding(const Finding& finding) override {
        printLine(stdout, visible(finding.page + ":" + std::to_string(finding.line) + ": " +
                                  std::string(nameOf(finding.severity)) + ": " +
                                  finding.remark.text + " [" + std::string(finding.rule) + "]"));
        printLine(stdout, visible("    " + placeOf(finding) + ": " + finding.remark.advice));
    }

    void failure(const std::string& page, const PageFailure& failure,
                 FailureLines& lines) override {
        lines.print(page, failure);
    }
};

// For programs: a JSON object for each finding, docs/schemas/check.schema.json.
class CheckJson : public CheckReport {
  public:
    void begin() override { lines_.begin("check"); }

    // What does not apply is left out: a family of what both share, a row of what there is once.
    void finding(const Finding& finding) override {
        const Remark& remark = finding.remark;
        Json line = {
            {"type", "finding"},    {"rule", finding.rule}, {"severity", nameOf(finding.severity)},
            {"page", finding.page}, {"line", finding.line}, {"control", finding.control}};
        if (remark.family) line["family"] = traitsOf(*remark.family).prefix;
        if (remark.row > 0) line["row"] = remark.row;
        if (!remark.property.empty()) line["property"] = remark.property;
        line["message"] = remark.text;
        line["advice"] = remark.advice;
        lines_.write(line);
    }

    void failure(const std::string& page, const PageFailure& failure, FailureLines&) override {
        lines_.write({{"type", "failure"}, {"page", page}, {"message", failure.text}});
    }

    void end(const PageTotals& totals, std::size_t errors) override {
        lines_.write({{"type", "summary"},
                      {"pages", totals.pages},
                      {"errors", errors},
                      {"warnings", totals.found - errors},
                      {"failed", totals.failed},
                      {"exitStatus", totals.status(true)}});
    }

  private:
    JsonLines lines_;
};

// ---- SARIF -------------------------------------------------------------------------------------

constexpr const char* Schema = "https://json.schemastore.org/sarif-2.1.0.json";
constexpr const char* WorkingFolder = "WORKINGFOLDER";

// A path as a URI reference: its bytes, those that have a meaning there in hexadecimal.
std::string uriOf(const std::string& path) {
    std::string uri;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 ||
            std::string_view("-._~/").find(c) != std::string_view::npos) {
            uri += c;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof code, "%%%02X", byte);
        uri += code;
    }
    return uri;
}

Json locationOf(const std::string& page) {
    const std::filesystem::path path(page);
    if (path.is_absolute()) return {{"uri", "file://" + uriOf(path.lexically_normal())}};
    return {{"uri", uriOf(path.lexically_normal())}, {"uriBaseId", WorkingFolder}};
}

const char* levelOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

std::size_t indexOf(std::string_view rule) {
    const auto rules = inspectionRules();
    const auto found =
        std::find_if(rules.begin(), rules.end(), [&](const Rule& each) { return each.id == rule; });
    return static_cast<std::size_t>(found - rules.begin());
}

Json ruleDescriptions() {
    Json rules = Json::array();
    for (const Rule& rule : inspectionRules()) {
        rules.push_back({{"id", rule.id},
                         {"shortDescription", {{"text", rule.summary}}},
                         {"defaultConfiguration", {{"level", levelOf(rule.severity)}}}});
    }
    return rules;
}

// For tools that gather the results of checks: one SARIF 2.1.0 log on standard output, written at
// the end. Pages below the working folder are named relative to it.
class CheckSarif : public CheckReport {
  public:
    void finding(const Finding& finding) override {
        const Remark& remark = finding.remark;
        std::string place = finding.control;
        if (remark.family) place += "/" + std::string(traitsOf(*remark.family).prefix);
        if (!remark.property.empty()) place += "/" + remark.property;
        const Json physical = {{"artifactLocation", locationOf(finding.page)},
                               {"region", {{"startLine", std::max(1, finding.line)}}}};
        const Json logical = {{"name", finding.control}, {"fullyQualifiedName", place}};
        results_.push_back(
            {{"ruleId", finding.rule},
             {"ruleIndex", indexOf(finding.rule)},
             {"level", levelOf(finding.severity)},
             {"message", {{"text", remark.text + ": " + remark.advice}}},
             {"locations", Json::array({{{"physicalLocation", physical},
                                         {"logicalLocations", Json::array({logical})}}})}});
    }

    void failure(const std::string& page, const PageFailure& failure, FailureLines&) override {
        notifications_.push_back(
            {{"level", "error"},
             {"message", {{"text", failure.text}}},
             {"locations",
              Json::array({{{"physicalLocation", {{"artifactLocation", locationOf(page)}}}}})}});
    }

    void end(const PageTotals& totals, std::size_t) override {
        const std::string folder = uriOf(std::filesystem::current_path().string()) + "/";
        const Json driver = {
            {"name", "headerdtc"}, {"semanticVersion", Version}, {"rules", ruleDescriptions()}};
        const Json invocation = {{"executionSuccessful", totals.failed == 0},
                                 {"exitCode", totals.status(true)},
                                 {"toolExecutionNotifications", notifications_}};
        const Json run = {{"tool", {{"driver", driver}}},
                          {"invocations", Json::array({invocation})},
                          {"originalUriBaseIds", {{WorkingFolder, {{"uri", "file://" + folder}}}}},
                          {"columnKind", "unicodeCodePoints"},
                          {"results", results_}};
        const Json log = {{"$schema", Schema}, {"version", "2.1.0"}, {"runs", Json::array({run})}};
        printLine(stdout, log.dump(2, ' ', false, Json::error_handler_t::replace));
    }

  private:
    Json results_ = Json::array();
    Json notifications_ = Json::array();
};

}  // namespace

std::string kindOf(const RuleText& rule) {
    return rule.severity ? std::string(nameOf(*rule.severity)) : "text";
}

void listRules(bool ofTranslations) {
    for (const RuleText& rule : allRules()) {
        if (!rule.severity && !ofTranslations) continue;
        std::printf("%-24s %-8s %s\n", std::string(rule.id).c_str(), kindOf(rule).c_str(),
                    std::string(rule.summary).c_str());
    }
}

std::unique_ptr<CheckReport> CheckReport::make(Form form) {
    switch (form) {
        case Form::Text:
            return std::make_unique<CheckText>();
        case Form::Json:
            return std::make_unique<CheckJson>();
        case Form::Sarif:
            break;
    }
    return std::make_unique<CheckSarif>();
}

}  // namespace headerdtc::cli
