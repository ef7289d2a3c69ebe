#pragma once

#include "host/inspection/provider_fields.h"
#include "host/inspection/script_text.h"
#include "host/site/site.h"

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace headerdtc {

// What the pages of a site are checked against: its providers, its files and the functions defined
// in them. Read once, shared by all pages. Thread-safe.
class SiteFacts {
  public:
    // Throws FileError when the catalogue cannot be read, or the install directory is not known:
    // nothing could be checked without them.
    explicit SiteFacts(const std::shared_ptr<Site>& site);

    struct Provider {
        ProviderFields eai, zeko;
        const ProviderFields& of(Family family) const { return family == Family::EAI ? eai : zeko; }
    };
    // What a provider offers, nullptr for one that the catalogue does not have.
    const Provider* provider(const std::string& name) const;
    // A provider's name in other letters or nearly the same ones; empty when there is none.
    std::string similarProvider(std::string_view name) const;

    // The file that a page names relative to the site: below the install directory, where the
    // editor browses, or below the project's root, from where the page includes it. Nothing when
    // there is none.
    std::optional<std::filesystem::path> find(std::string_view sitePath);

    using Functions = std::unordered_set<std::string>;  // keys of their names
    // What a file brings along, the files that it includes among it.
    struct Contents {
        Functions functions;
        std::string declaration;  // a name that is declared at the top level; empty: there is none
        // What ends a page that includes it, "has a <% without a %>", and in which file.
        struct Fault {
            std::filesystem::path file;
            std::string text;
        };
        std::vector<Fault> faults;
    };
    const Contents& contentsOf(const std::filesystem::path& file);
    // The functions of a text that stands in for a file.
    Functions functionsOf(std::string_view page, const std::filesystem::path& file);

    // What the template brings into every page: functions, and the names that it uses itself.
    struct Template {
        Functions functions;
        Functions names;
        std::string failure;  // why it cannot be read; empty when it could
    };
    const Template& siteTemplate();

  private:
    // The mutex is held in what follows.
    using Found = std::optional<std::filesystem::path>;
    const Found& findOnce(std::string_view sitePath);
    Found findAnyCase(const std::filesystem::path& plain) const;
    Found findIncluded(const ScriptText::Include& include, const std::filesystem::path& includer);
    void collect(const ScriptText& script, const std::filesystem::path& file, Contents& all,
                 std::vector<std::filesystem::path>& open, std::set<std::filesystem::path>& seen);
    const ScriptText& scriptOf(const std::filesystem::path& file);

    std::shared_ptr<Site> site_;
    std::shared_ptr<const Catalogue> catalogue_;
    std::string installDir_;  // a Windows path with a backslash at its end
    std::unordered_map<std::string, Provider> providers_;

    WindowsPaths files_;  // of this machine, in any case

    std::mutex mutex_;
    std::map<std::string, Found, std::less<>> found_;  // by site path
    std::map<std::filesystem::path, ScriptText> scripts_;
    std::map<std::filesystem::path, Contents> contents_;
    std::optional<Template> template_;
};

// The facts of any number of sites. Thread-safe.
class SiteFactsCache {
  public:
    // Throws FileError, for every page of such a site.
    std::shared_ptr<SiteFacts> of(const std::shared_ptr<Site>& site);

  private:
    std::mutex mutex_;
    // The site is kept, so that its address stays its own.
    std::map<std::shared_ptr<Site>, std::shared_ptr<SiteFacts>> facts_;
};

}  // namespace headerdtc
