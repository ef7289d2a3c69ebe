#include "host/doctor/doctor.h"

#include "cli/json_lines.h"
#include "cli/output.h"
#include "cli/site_commands.h"

#include <algorithm>
#include <cstdlib>

namespace headerdtc::cli {
namespace {

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

}  // namespace

int doctor(const CommonOptions& common, const DoctorOptions& options) {
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

}  // namespace headerdtc::cli
