#include "host/doctor/doctor.h"

#include "cli/command.h"
#include "cli/streams.h"
#include "cli/version.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <memory>

namespace headerdtc::cli {
namespace {

struct DoctorOptions {
    std::string place = ".";  // page or folder
    bool json = false;
};

constexpr const char* Variable = "HEADERDTC_CONFIG";

std::string namedBy(const std::string& configuration) {
    const char* value = std::getenv(Variable);
    return value && configuration == value ? Variable : "--config";
}

ExitStatus doctor(const CommonOptions& common, const DoctorOptions& options) {
    auto links = examineSite(options.place, common.configuration, namedBy(common.configuration));
    links.insert(links.begin(), {"headerdtc", Health::Whole, Version, ""});
    JsonLines lines;
    if (options.json) lines.begin("doctor");
    const std::size_t broken = tellLinks(links, options.json ? &lines : nullptr);
    const ExitStatus status = broken > 0 ? CheckFoundSomething : Done;
    if (options.json)
        lines.write({{"type", "summary"},
                     {"links", links.size()},
                     {"broken", broken},
                     {"exitStatus", status}});
    return status;
}

}  // namespace

std::size_t tellLinks(const std::vector<Diagnosis>& links, JsonLines* lines) {
    std::vector<Row> rows;
    std::size_t broken = 0;
    for (const Diagnosis& link : links) {
        const std::string_view state = nameOf(link.health);
        if (link.health == Health::Broken) ++broken;
        rows.push_back({std::string(state), link.link, link.detail, link.nextStep});
        if (!lines) continue;
        JsonLines::Json line = {
            {"type", "link"}, {"link", link.link}, {"status", state}, {"detail", link.detail}};
        if (!link.nextStep.empty()) line["nextStep"] = link.nextStep;
        lines->write(line);
    }
    if (!lines) printRows(rows);
    return broken;
}

void addDoctor(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<DoctorOptions>();
    CLI::App& command = addCommand(
        app, "doctor", "Examine the set-up of a site",
        R"(Looks at everything that a site needs, from its configuration to the tables of its
translation database, and names the next step for whatever is broken. Writes nothing;
passwords are masked, so its output can go into a report.

Examples:
  headerdtc doctor                         the site of this folder
  headerdtc doctor site/orders/list.asp    the site of a page

Exit status: 0 nothing broken, 1 something broken, 2 wrong usage.)");
    addSitePath(command, options->place);
    command.add_flag("--json", options->json, "one JSON object a link");
    command.callback(whenNamed(line, options, doctor));
}

}  // namespace headerdtc::cli
