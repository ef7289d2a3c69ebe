#include "cli/sarif.h"

#include "cli/output.h"
#include "cli/version.h"
#include "host/inspection/rules/rule_table.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <string_view>

namespace headerdtc::cli {
namespace {

using Json = JsonLines::Json;

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

}  // namespace

void SarifReport::finding(const Finding& finding) {
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

void SarifReport::failure(const std::string& page, const PageFailure& failure) {
    notifications_.push_back(
        {{"level", "error"},
         {"message", {{"text", failure.text}}},
         {"locations",
          Json::array({{{"physicalLocation", {{"artifactLocation", locationOf(page)}}}}})}});
}

void SarifReport::end(const CheckTotals& totals) {
    const std::string folder = uriOf(std::filesystem::current_path().string()) + "/";
    const Json driver = {
        {"name", "headerdtc"}, {"semanticVersion", Version}, {"rules", ruleDescriptions()}};
    const Json invocation = {{"executionSuccessful", totals.failed == 0},
                             {"exitCode", totals.status()},
                             {"toolExecutionNotifications", notifications_}};
    const Json run = {{"tool", {{"driver", driver}}},
                      {"invocations", Json::array({invocation})},
                      {"originalUriBaseIds", {{WorkingFolder, {{"uri", "file://" + folder}}}}},
                      {"columnKind", "unicodeCodePoints"},
                      {"results", results_}};
    const Json log = {{"$schema", Schema}, {"version", "2.1.0"}, {"runs", Json::array({run})}};
    printLine(stdout, log.dump(2, ' ', false, Json::error_handler_t::replace));
}

}  // namespace headerdtc::cli
