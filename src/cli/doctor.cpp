#include "host/doctor/doctor.h"

#include "cli/command.h"
#include "cli/streams.h"

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

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

void printText(const std::vector<Diagnosis>& diagnoses) {
    constexpr std::size_t HealthWidth = 9;
    std::size_t linkWidth = 0;
    for (const Diagnosis& diagnosis : diagnoses)
        linkWidth = std::max(linkWidth, diagnosis.link.size());
    for (const Diagnosis& diagnosis : diagnoses) {
        printLine(stdout, padded(std::string(nameOf(diagnosis.health)), HealthWidth) +
                              padded(diagnosis.link, linkWidth + 2) + diagnosis.detail);
        if (!diagnosis.nextStep.empty())
            printLine(stdout, std::string(HealthWidth, ' ') + "-> " + diagnosis.nextStep);
    }
}

void printJson(const std::vector<Diagnosis>& diagnoses, std::size_t broken, ExitStatus status) {
    JsonLines lines;
    lines.begin("doctor");
    for (const Diagnosis& diagnosis : diagnoses) {
        JsonLines::Json line = {{"type", "link"},
                                {"link", diagnosis.link},
                                {"status", nameOf(diagnosis.health)},
                                {"detail", diagnosis.detail}};
        if (!diagnosis.nextStep.empty()) line["nextStep"] = diagnosis.nextStep;
        lines.write(line);
    }
    lines.write({{"type", "summary"},
                 {"links", diagnoses.size()},
                 {"broken", broken},
                 {"exitStatus", status}});
}

ExitStatus doctor(const CommonOptions& common, const DoctorOptions& options) {
    const auto diagnoses =
        examineSite(options.place, common.configuration, namedBy(common.configuration));
    const auto broken = std::count_if(
        diagnoses.begin(), diagnoses.end(),
        [](const Diagnosis& diagnosis) { return diagnosis.health == Health::Broken; });
    const ExitStatus status = broken > 0 ? CheckFoundSomething : Done;
    if (options.json) {
        printJson(diagnoses, static_cast<std::size_t>(broken), status);
    } else {
        printText(diagnoses);
    }
    return status;
}

}  // namespace

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
