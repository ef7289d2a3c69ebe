#include "host/inspection/site_facts.h"

#include "host/files/whole_file.h"
#include "host/inspection/finding.h"
#include "platform/nearest_name.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "runtime/runtime_text.h"
#include "scripts/scripts.h"

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

}  // namespace

SiteFacts::SiteFacts(const std::shared_ptr<Site>& site)
    : site_(site),
      catalogue_(site->dataSources.current()),
      installDir_(installDirectoryOf(site->registry)) {
    if (installDir_.empty()) {
        const auto& registry = site->configuration->registry;
        throw FileError(
            registry.empty() ? site->configuration->folder.string() : registry.string(),
            "the install directory cannot be read from " + std::string(InstallDirValue));
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

std::optional<fs::path> SiteFacts::find(std::string_view sitePath) {
    const std::lock_guard lock(mutex_);
    return findOnce(sitePath);
}

const SiteFacts::Found& SiteFacts::findOnce(std::string_view sitePath) {
    const auto known = found_.find(sitePath);
    if (known != found_.end()) return known->second;
    const SiteConfiguration& site = *site_->configuration;
    Found file;
    try {
        file = ifFile(site.drives.toLocal(installDir_ + std::string(sitePath)));
    } catch (const RuntimeError&) {
        // The drive is not mapped; the project may have the file all the same.
    }
    // With a slash at its front too it is a path below the root.
    if (!file) {
        const fs::path below = site.projectRoot.string() + "/" + replaceAll(sitePath, "\\", "/");
        file = findAnyCase(below.lexically_normal());
    }
    return found_.emplace(sitePath, std::move(file)).first->second;
}

// A file of the site by its normal path, the components found without regard to case.
SiteFacts::Found SiteFacts::findAnyCase(const fs::path& plain) const {
    if (!isOfSite(plain, *site_->configuration)) return std::nullopt;
    try {
        return ifFile(files_.toLocal("Z:" + plain.string()));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

SiteFacts::Found SiteFacts::findIncluded(const ScriptText::Include& include,
                                         const fs::path& includer) {
    if (include.isVirtual) return findOnce(include.path);
    const fs::path plain =
        (includer.parent_path() / replaceAll(include.path, "\\", "/")).lexically_normal();
    if (auto file = findAnyCase(plain)) return file;
    // Published, the pages lie among the files of the installed site.
    const fs::path& root = site_->configuration->projectRoot;
    return isBelow(plain, root) ? findOnce(plain.lexically_relative(root).string()) : std::nullopt;
}

const ScriptText& SiteFacts::scriptOf(const fs::path& file) {
    const auto found = scripts_.find(file);
    if (found != scripts_.end()) return found->second;
    ScriptText script;
    try {
        const std::string bytes = readWholeFile(file).bytes;
        script =
            ScriptText::read(site_->configuration->codePage.decode(bytes), ScriptText::Form::Page);
    } catch (const FileError&) {
        // A file that cannot be read defines nothing; another rule reports it.
    }
    return scripts_.emplace(file, std::move(script)).first->second;
}

// `open` are the files that include one another down to this one, by their real paths: through
// links one file has many names, and through a loop of folders endlessly many.
void SiteFacts::collect(const ScriptText& script, const fs::path& file, Contents& all,
                        std::vector<fs::path>& open, std::set<fs::path>& seen) {
    all.functions.insert(script.functions.begin(), script.functions.end());
    if (all.declaration.empty() && !script.declared.empty())
        all.declaration = script.declared.front();
    if (script.isOpen) all.faults.push_back({file, "has a <% without a %>"});
    for (const auto& include : script.includes) {
        const auto included = findIncluded(include, file);
        if (!included) {
            all.faults.push_back(
                {file, "includes " + inQuotes(include.path) + ", which is not there"});
            continue;
        }
        std::error_code failure;
        const fs::path real = fs::canonical(*included, failure);
        if (failure) continue;
        if (std::find(open.begin(), open.end(), real) != open.end()) {
            all.faults.push_back({file, "includes " + inQuotes(include.path) +
                                            ", by which it includes itself without end"});
        } else if (seen.insert(real).second) {
            open.push_back(real);
            collect(scriptOf(*included), *included, all, open, seen);
            open.pop_back();
        }
    }
}

const SiteFacts::Contents& SiteFacts::contentsOf(const fs::path& file) {
    const std::lock_guard lock(mutex_);
    const auto found = contents_.find(file);
    if (found != contents_.end()) return found->second;
    Contents all;
    std::error_code failure;
    std::vector<fs::path> open{fs::canonical(file, failure)};
    std::set<fs::path> seen{open.front()};
    collect(scriptOf(file), file, all, open, seen);
    return contents_.emplace(file, std::move(all)).first->second;
}

SiteFacts::Functions SiteFacts::functionsOf(std::string_view page, const fs::path& file) {
    const ScriptText script = ScriptText::read(page, ScriptText::Form::Page);
    const std::lock_guard lock(mutex_);
    Contents all;
    std::vector<fs::path> open{file};
    std::set<fs::path> seen{file};
    collect(script, file, all, open, seen);
    return std::move(all.functions);
}

const SiteFacts::Template& SiteFacts::siteTemplate() {
    const std::lock_guard lock(mutex_);
    if (template_) return *template_;
    template_.emplace();
    const std::string path = installDir_ + std::string(TemplateFile);
    std::string file = path;
    for (const ScriptVariable& variable : ScriptVariables)
        template_->names.insert(functionKey(variable.name));
    try {
        file = site_->templateFile().string();
        const std::string text = site_->textFiles.readText(path);
        Contents all;
        std::vector<fs::path> open;
        std::set<fs::path> seen;
        // Its includes are those of the pages that it becomes a part of: only those from the root
        // of the site are the same for all of them.
        collect(ScriptText::read(text, ScriptText::Form::Page),
                site_->configuration->projectRoot / "page", all, open, seen);
        template_->functions = std::move(all.functions);
        template_->names.merge(namesUsedIn(text));
    } catch (const RuntimeError& error) {
        template_->failure = file + ": the template cannot be read: " + error.description();
    }
    return *template_;
}

std::shared_ptr<SiteFacts> SiteFactsCache::of(const std::shared_ptr<Site>& site) {
    const std::lock_guard lock(mutex_);
    auto& facts = facts_[site];
    if (!facts) facts = std::make_shared<SiteFacts>(site);
    return facts;
}

}  // namespace headerdtc
