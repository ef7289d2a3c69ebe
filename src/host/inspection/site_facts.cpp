#include "host/inspection/site_facts.h"

#include "host/files/whole_file.h"
#include "platform/nearest_name.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "runtime/runtime_text.h"
#include "scripts/install_directory.h"

#include <algorithm>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> ifFile(const fs::path& path) {
    std::error_code failure;
    return fs::is_regular_file(path, failure) ? std::optional(path) : std::nullopt;
}

bool isBelow(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
           folder.end();
}

// A page says what it includes, but only the site says where files are read: below its root and in
// the folders of its drives. What links lead to from there is the site's own choice.
bool isOfSite(const fs::path& path, const SiteConfiguration& site) {
    const auto& drives = site.drives.drives();
    return isBelow(path, site.projectRoot) ||
           std::any_of(drives.begin(), drives.end(), [&](const auto& drive) {
               return drive.second != drive.second.root_path() && isBelow(path, drive.second);
           });
}

// A file of the site, its components found without regard to case.
std::optional<fs::path> findAnyCase(const fs::path& path, const SiteConfiguration& site) {
    const fs::path plain = path.lexically_normal();
    if (!isOfSite(plain, site)) return std::nullopt;
    try {
        return ifFile(WindowsPaths().toLocal("Z:" + plain.string()));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace

SiteFacts::SiteFacts(const std::shared_ptr<Site>& site)
    : site_(site),
      catalogue_(site->dataSources.current()),
      installDir_(installDirectoryOf(site->registry)) {
    if (installDir_.empty()) {
        const auto& registry = site->configuration->registry;
        throw FileError(registry.empty() ? site->configuration->folder.string() : registry.string(),
                        "the install directory cannot be read from " +
                            std::string(InstallDirValue) +
                            "; 'headerdtc doctor' says what is missing");
    }
    for (const auto& provider : catalogue_->providers)
        providers_.try_emplace(provider.name, Provider{ProviderFields(provider, Family::EAI),
                                                       ProviderFields(provider, Family::ZEKO)});
}

const SiteFacts::Provider* SiteFacts::provider(const std::string& name) const {
    const auto found = providers_.find(name);
    return found == providers_.end() ? nullptr : &found->second;
}

std::string SiteFacts::similarProvider(std::string_view name) const {
    NearestName nearest(name);
    for (const auto& provider : catalogue_->providers)
        nearest.offer(provider.name);
    return nearest.found();
}

std::optional<fs::path> SiteFacts::find(std::string_view sitePath) const {
    try {
        const auto& drives = site_->configuration->drives;
        if (auto file = ifFile(drives.toLocal(installDir_ + std::string(sitePath)))) return file;
    } catch (const RuntimeError&) {
        // A drive that leads nowhere: the project may still have the file.
    }
    // With a slash at its front too it is a path below the root.
    return findAnyCase(
        site_->configuration->projectRoot.string() + "/" + replaceAll(sitePath, "\\", "/"),
        *site_->configuration);
}

std::optional<fs::path> SiteFacts::findIncluded(const ScriptText::Include& include,
                                                const fs::path& includer) const {
    if (include.isVirtual) return find(include.path);
    return findAnyCase(includer.parent_path() / replaceAll(include.path, "\\", "/"),
                       *site_->configuration);
}

const ScriptText& SiteFacts::scriptOf(const fs::path& file) {
    const auto found = scripts_.find(file);
    if (found != scripts_.end()) return found->second;
    ScriptText script;
    try {
        const std::string bytes = readWholeFile(file).bytes;
        script = ScriptText::read(site_->configuration->codePage.decode(bytes));
    } catch (const FileError&) {
        // It defines nothing; that it cannot be read is for another rule to say.
    }
    return scripts_.emplace(file, std::move(script)).first->second;
}

void SiteFacts::collect(const ScriptText& script, const fs::path& file, Functions& all,
                        std::unordered_set<std::string>& seen) {
    all.insert(script.functions.begin(), script.functions.end());
    for (const auto& include : script.includes) {
        const auto included = findIncluded(include, file);
        if (!included) continue;
        // Links make many names for one file, and in a loop of folders names without end.
        std::error_code failure;
        const fs::path real = fs::canonical(*included, failure);
        if (!failure && seen.insert(real.string()).second)
            collect(scriptOf(*included), *included, all, seen);
    }
}

const SiteFacts::Functions& SiteFacts::functionsOf(const fs::path& file) {
    const std::lock_guard lock(mutex_);
    const auto found = functions_.find(file);
    if (found != functions_.end()) return found->second;
    Functions all;
    std::unordered_set<std::string> seen{file.string()};
    collect(scriptOf(file), file, all, seen);
    return functions_.emplace(file, std::move(all)).first->second;
}

void SiteFacts::addFunctions(std::string_view text, const fs::path& file, Functions& all) {
    const ScriptText script = ScriptText::read(text);
    const std::lock_guard lock(mutex_);
    std::unordered_set<std::string> seen{file.string()};
    collect(script, file, all, seen);
}

const SiteFacts::Functions& SiteFacts::functionsOfTemplate() {
    const std::lock_guard lock(mutex_);
    if (templateFunctions_) return *templateFunctions_;
    templateFunctions_.emplace();
    try {
        const std::string path = installDir_ + std::string(TemplateFile);
        const ScriptText script = ScriptText::read(site_->textFiles.readText(path));
        std::unordered_set<std::string> seen;
        // Its includes are those of the pages that it becomes a part of: only those from the root
        // of the site are the same for all of them.
        collect(script, site_->configuration->projectRoot / "page", *templateFunctions_, seen);
    } catch (const RuntimeError&) {
        // A template that cannot be read fails every page, which says so.
    }
    return *templateFunctions_;
}

std::shared_ptr<SiteFacts> SiteFactsCache::of(const std::shared_ptr<Site>& site) {
    const std::lock_guard lock(mutex_);
    auto& facts = facts_[site];
    if (!facts) facts = std::make_shared<SiteFacts>(site);
    return facts;
}

}  // namespace headerdtc
