#include "host/doctor/examination.h"
#include "host/files/whole_file.h"
#include "host/site/registry_export.h"
#include "host/site/site.h"
#include "platform/nearest_name.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "runtime/runtime_text.h"
#include "scripts/scripts.h"

#include <memory>
#include <set>

namespace headerdtc::doctor {
namespace {

namespace fs = std::filesystem;

constexpr const char* RegistryLink = "registry export";
constexpr const char* InstallLink = "install directory";
constexpr const char* TemplateLink = "template";

bool has32BitInstallDir(const fs::path& file, const CodePage& codePage) {
    constexpr std::string_view Software = "SOFTWARE\\";
    std::string value(InstallDirValue);
    value.insert(value.find(Software) + Software.size(), "WOW6432Node\\");
    try {
        return !SiteRegistry(file, codePage).RegRead(value).empty();
    } catch (const RuntimeError&) {
        return false;
    }
}

void examineRegistry(Examination& seen) {
    const fs::path& file = seen.configuration->registry;
    const CodePage& codePage = seen.configuration->codePage;
    const std::string exportIt =
        "export the key HKEY_LOCAL_MACHINE\\SOFTWARE\\Zarvik\\Zarvik Velmora with the registry "
        "editor of the server and name the file by \"registry\" in headerdtc.toml";
    try {
        RegistryExport::parse(file.string(), readWholeFile(file).bytes, codePage);
    } catch (const FileError& error) {
        return seen.broken(RegistryLink, error.what(), exportIt);
    }
    SiteRegistry registry(file, codePage);
    seen.installDir = installDirectoryOf(registry);
    if (seen.installDir.empty() && has32BitInstallDir(file, codePage)) {
        return seen.broken(RegistryLink,
                           file.string() +
                               " has InstallDir below WOW6432Node alone, as a 32-bit suite on a "
                               "64-bit server has it",
                           "take WOW6432Node\\ out of the key's name in that file");
    }
    if (seen.installDir.empty()) {
        return seen.broken(RegistryLink, file.string() + " has no " + std::string(InstallDirValue),
                           exportIt);
    }
    seen.whole(RegistryLink, file.string());
}

void examineInstallDir(Examination& seen) {
    const std::string& directory = seen.installDir;
    try {
        const fs::path folder = seen.configuration->drives.toLocal(directory);
        std::error_code failure;
        if (fs::is_directory(folder, failure))
            return seen.whole(InstallLink, directory + ", which is " + folder.string());
        if (failure == std::errc::permission_denied) return seen.refused(InstallLink, folder);
        seen.broken(InstallLink,
                    directory + " would be " + folder.string() + ", which is no folder",
                    "copy the installed site there, or correct the drive in [drives] of "
                    "headerdtc.toml");
    } catch (const RuntimeError& error) {
        seen.broken(InstallLink, directory + ": " + error.description(),
                    "give the drive a folder in [drives] of headerdtc.toml");
    }
    seen.installDir.clear();
}

// What reads like a placeholder of ours: capitals between angle brackets, with an underscore or
// nearly those of one; others are elements of HTML.
std::set<std::string> placeholdersIn(std::string_view text) {
    std::set<std::string> found;
    for (auto at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const auto end = text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_", at + 1);
        if (end == std::string_view::npos || text[end] != '>') continue;
        const std::string_view tag = text.substr(at, end + 1 - at);
        NearestName nearest{std::string(tag)};
        for (const RuntimeTextStep& step : runtimeTextSteps())
            nearest.offer(std::string(step.placeholder));
        if (tag.find('_') != std::string_view::npos || !nearest.found().empty()) found.emplace(tag);
    }
    return found;
}

std::string listOf(const std::set<std::string>& words) {
    std::string list;
    for (const std::string& word : words)
        list += (list.empty() ? "" : ", ") + word;
    return list;
}

void examinePlaceholders(Examination& seen, const std::string& file, const std::string& text) {
    const std::string capitals = upperCase(text);
    std::set<std::string> known, used;
    for (const RuntimeTextStep& step : runtimeTextSteps()) {
        known.emplace(step.placeholder);
        if (capitals.find(step.placeholder) != std::string::npos) used.emplace(step.placeholder);
    }
    std::set<std::string> unknown;
    for (const std::string& each : placeholdersIn(text)) {
        if (!known.contains(each)) unknown.insert(each);
    }
    const std::string count =
        std::to_string(used.size()) + " of " + std::to_string(known.size()) + " placeholders";
    if (used.empty()) {
        seen.doubtful(TemplateLink, file + " has none of the placeholders",
                      "look whether it is the suite's template; pages would all get the same text");
    } else if (!unknown.empty()) {
        seen.doubtful(TemplateLink, file + ", " + count + "; unknown: " + listOf(unknown),
                      "correct their names; what is unknown stays in the pages as it is");
    } else {
        seen.whole(TemplateLink, file + ", " + count);
    }
}

void examineTemplate(Examination& seen) {
    Site site(std::make_shared<const SiteConfiguration>(*seen.configuration));
    const std::string path = seen.installDir + std::string(TemplateFile);
    std::string file = path;
    try {
        file = site.templateFile().string();
        examinePlaceholders(seen, file, site.textFiles.readText(path));
    } catch (const RuntimeError& error) {
        seen.broken(TemplateLink, error.description() + ": " + file,
                    "copy it from the installed suite to there");
    }
}

}  // namespace

void examineInstallation(Examination& seen) {
    if (!seen.configuration) return;
    examineRegistry(seen);
    if (seen.installDir.empty()) {
        seen.skipped(InstallLink, "it is in the registry export");
    } else {
        examineInstallDir(seen);
    }
    if (seen.installDir.empty()) {
        seen.skipped(TemplateLink, "it is below the install directory");
    } else {
        examineTemplate(seen);
    }
}

}  // namespace headerdtc::doctor
