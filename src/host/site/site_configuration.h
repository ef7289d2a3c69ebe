#pragma once

#include "host/files/code_page.h"
#include "host/files/file_error.h"
#include "host/site/windows_paths.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace headerdtc {

// What a site makes of a rule of its checks.
struct RuleSetting {
    enum class Level { Off, Warning, Error };
    Level level = Level::Off;
    int line = 0, column = 0;  // where the configuration has it
};

// A site's headerdtc.toml. All paths are absolute.
struct SiteConfiguration {
    std::filesystem::path file;    // the headerdtc.toml; empty: there is none, these are defaults
    std::filesystem::path folder;  // what relative paths are relative to
    CodePage codePage{"windows-1252"};
    std::filesystem::path registry;
    std::filesystem::path projectRoot;
    WindowsPaths drives;
    std::filesystem::path catalogue;
    std::string connectString;
    std::string labelConnectString;
    std::filesystem::path odbcIni;  // empty: whatever ODBC finds by itself
    // By the rule's name, which the checks know and this does not.
    std::map<std::string, RuleSetting> rules;
};

// Reads one. Throws ConfigurationError with file, line and column for a malformed file, an unknown
// key, a value of a wrong type or out of range.
SiteConfiguration readSiteConfiguration(const std::filesystem::path& file);

// The same for bytes that are not written yet. The file's name is an absolute one.
SiteConfiguration readSiteConfiguration(const std::filesystem::path& file, std::string_view bytes);

// The configuration of a site that has no headerdtc.toml.
SiteConfiguration defaultSiteConfiguration(const std::filesystem::path& folder);

// The headerdtc.toml that holds for a page or folder: in its folder or the nearest parent. Nothing
// when there is none. A symbolic link counts as standing where it is.
std::optional<std::filesystem::path> findSiteConfiguration(const std::filesystem::path& page);

// Configurations by page, read again only when their file changed. Thread-safe.
class SiteConfigurations {
  public:
    // With an `only` file that one holds for every page.
    explicit SiteConfigurations(std::optional<std::filesystem::path> only = std::nullopt);
    ~SiteConfigurations();
    // Throws ConfigurationError.
    std::shared_ptr<const SiteConfiguration> forPage(const std::filesystem::path& page);

  private:
    struct Cache;
    std::unique_ptr<Cache> cache_;
};

}  // namespace headerdtc
