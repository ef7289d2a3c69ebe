#include "host/site/site_configuration.h"

#include "host/files/file_cache.h"
#include "host/odbc/secrets.h"
#include "host/site/toml.h"
#include "platform/ascii.h"
#include "platform/nearest_name.h"
#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

constexpr const char* FileName = "headerdtc.toml";

fs::path absoluteFrom(const fs::path& folder, const fs::path& path) {
    auto result = (folder / path).lexically_normal();
    return result.has_filename() || result == result.root_path() ? result : result.parent_path();
}

const char* describe(toml::node_type type) {
    switch (type) {
        case toml::node_type::table:
            return "a table";
        case toml::node_type::array:
            return "an array";
        case toml::node_type::string:
            return "a text";
        case toml::node_type::integer:
            return "an integer";
        case toml::node_type::floating_point:
            return "a number with a fraction";
        case toml::node_type::boolean:
            return "a Boolean";
        case toml::node_type::date:
        case toml::node_type::time:
        case toml::node_type::date_time:
            return "a date or time";
        case toml::node_type::none:
            break;
    }
    return "nothing";
}

class ConfigurationReader {
  public:
    ConfigurationReader(const fs::path& file, std::string_view bytes)
        : file_(file), bytes_(bytes), result_(defaultSiteConfiguration(file.parent_path())) {
        result_.file = file;
    }

    SiteConfiguration read() {
        toml::table root;
        try {
            root = toml::parse(bytes_);
        } catch (const toml::parse_error& error) {
            fail(error.source(),
                 std::string(error.description()) + "; texts stand in quotation marks");
        }
        for (const auto& [key, value] : root)
            readEntry(key, value);
        if (!drives_.empty()) addDrives();
        return std::move(result_);
    }

  private:
    // What a key of the file sets.
    struct Key {
        std::string_view section;  // empty: at the top
        std::string_view name;
        void (ConfigurationReader::*set)(const toml::key&, const toml::node&);
    };
    static constexpr std::string_view Drives = "drives";
    static constexpr std::string_view Check = "check";
    static const std::array<Key, 7> Keys;

    void readEntry(const toml::key& key, const toml::node& value) {
        if (key.str() == Drives || key.str() == Check || isSection(key.str())) {
            const auto* section = value.as_table();
            if (!section) failType(key, value, "a table");
            for (const auto& [name, inside] : *section) {
                if (key.str() == Drives) {
                    setDrive(name, inside);
                } else if (key.str() == Check) {
                    setRule(name, inside);
                } else {
                    set(key.str(), name, inside);
                }
            }
        } else {
            set({}, key, value);
        }
    }

    static bool isSection(std::string_view name) {
        return std::any_of(Keys.begin(), Keys.end(), [&](const Key& known) {
            return !name.empty() && known.section == name;
        });
    }

    void set(std::string_view section, const toml::key& key, const toml::node& value) {
        std::string names;
        NearestName nearest(key.str());
        for (const auto& known : Keys) {
            if (known.section != section) continue;
            if (known.name == key.str()) return (this->*known.set)(key, value);
            names.append(names.empty() ? "" : ", ").append(known.name);
            nearest.offer(known.name);
        }
        if (section.empty())
            names += ", [project], [drives], [datasource], [translations], [check]";
        fail(key.source(), "unknown key \"" + maskSecrets(key.str()) + "\"" +
                               (section.empty() ? "" : " in [" + std::string(section) + "]") +
                               "; known are " + names + nearest.question());
    }

    std::string text(const toml::key& key, const toml::node& value) const {
        const auto text = value.value_exact<std::string>();
        if (!text) failType(key, value, "a text in quotes");
        return *text;
    }

    fs::path path(const toml::key& key, const toml::node& value) const {
        const auto name = text(key, value);
        if (name.empty() || name.find('\0') != std::string::npos) {
            fail(value.source(), "\"" + std::string(key.str()) +
                                     "\" has to name a file or folder; without one, leave the key "
                                     "out");
        }
        return absoluteFrom(result_.folder, name);
    }

    template <fs::path SiteConfiguration::*member>
    void setPath(const toml::key& key, const toml::node& value) {
        result_.*member = path(key, value);
    }

    template <std::string SiteConfiguration::*member>
    void setText(const toml::key& key, const toml::node& value) {
        result_.*member = text(key, value);
    }

    void setCodePage(const toml::key& key, const toml::node& value) {
        try {
            result_.codePage = CodePage(text(key, value));
        } catch (const std::invalid_argument& error) {
            fail(value.source(), error.what());
        }
    }

    void setDrive(const toml::key& key, const toml::node& value) {
        const auto name = key.str();
        if (name.size() != 1 || !ascii::isLetter(name[0])) {
            fail(key.source(), "unknown key \"" + maskSecrets(name) +
                                   "\" in [drives]; a drive is one letter from A to Z");
        }
        const char letter = ascii::upper(name[0]);
        if (!drives_.emplace(letter, path(key, value)).second) {
            fail(key.source(), std::string("drive ") + letter +
                                   " is there twice, once in upper and once in lower case; "
                                   "remove one of them");
        }
    }

    void setRule(const toml::key& key, const toml::node& value) {
        constexpr std::array<std::pair<std::string_view, RuleSetting::Level>, 3> Levels = {
            {{"off", RuleSetting::Level::Off},
             {"warning", RuleSetting::Level::Warning},
             {"error", RuleSetting::Level::Error}}};
        const std::string level = text(key, value);
        const auto known = std::find_if(Levels.begin(), Levels.end(),
                                        [&](const auto& each) { return each.first == level; });
        if (known == Levels.end())
            fail(value.source(),
                 "\"" + std::string(key.str()) + "\" has to be \"off\", \"warning\" or \"error\"");
        const auto& where = key.source().begin;
        const auto line = static_cast<int>(where.line);
        result_.rules[std::string(key.str())] = {known->second, line,
                                                 columnInBytes(line, where.column)};
    }

    void addDrives() {
        auto drives = result_.drives.drives();
        for (const auto& [letter, folder] : drives_)
            drives[letter] = folder;
        result_.drives = WindowsPaths(drives);
    }

    [[noreturn]] void failType(const toml::key& key, const toml::node& value,
                               const std::string& wanted) const {
        fail(value.source(), "\"" + std::string(key.str()) + "\" has to be " + wanted + ", not " +
                                 describe(value.type()));
    }

    [[noreturn]] void fail(const toml::source_region& where, const std::string& problem) const {
        const auto line = static_cast<int>(where.begin.line);
        throw ConfigurationError(file_, line, columnInBytes(line, where.begin.column), problem);
    }

    // The library counts characters.
    int columnInBytes(int line, toml::source_index column) const {
        std::string_view rest = bytes_;
        for (int passed = 1; passed < line; ++passed)
            rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
        std::size_t bytes = 0;
        for (toml::source_index passed = 1; passed < column && bytes < rest.size(); ++passed)
            bytes += std::max<std::size_t>(utf8::characterLength(rest.substr(bytes)), 1);
        return static_cast<int>(bytes) + 1;
    }

    const fs::path& file_;
    const std::string_view bytes_;
    SiteConfiguration result_;
    std::map<char, fs::path> drives_;
};

const std::array<ConfigurationReader::Key, 7> ConfigurationReader::Keys{{
    {"", "code_page", &ConfigurationReader::setCodePage},
    {"", "registry", &ConfigurationReader::setPath<&SiteConfiguration::registry>},
    {"project", "root", &ConfigurationReader::setPath<&SiteConfiguration::projectRoot>},
    {"datasource", "catalogue", &ConfigurationReader::setPath<&SiteConfiguration::catalogue>},
    {"translations", "connect_string",
     &ConfigurationReader::setText<&SiteConfiguration::connectString>},
    {"translations", "label_connect_string",
     &ConfigurationReader::setText<&SiteConfiguration::labelConnectString>},
    {"translations", "odbc_ini", &ConfigurationReader::setPath<&SiteConfiguration::odbcIni>},
}};

[[noreturn]] void failToRead(const FileError& error) {
    throw ConfigurationError(error.file(), error.problem() +
                                               "; the site's configuration has to be a file like "
                                               "headerdtc.toml, named by --config or "
                                               "HEADERDTC_CONFIG or standing above the page");
}

fs::path absoluteFile(const fs::path& file) {
    return fs::absolute(file).lexically_normal();
}

// The folder in which a page stands, or the folder itself.
fs::path folderOf(const fs::path& page) {
    const auto place = absoluteFrom(fs::current_path(), page);
    std::error_code ignored;
    return fs::is_directory(place, ignored) ? place : place.parent_path();
}

// Nothing can be found below a folder that is not there or may not be entered; other reasons, such
// as a disk that fails, leave open whether the file is there.
bool meansNotThere(int reason) {
    constexpr std::array Reasons = {ENOENT, ENOTDIR, EACCES, ELOOP, ENAMETOOLONG};
    return std::find(Reasons.begin(), Reasons.end(), reason) != Reasons.end();
}

}  // namespace

SiteConfiguration readSiteConfiguration(const fs::path& file, std::string_view bytes) {
    return ConfigurationReader(file, bytes).read();
}

SiteConfiguration readSiteConfiguration(const fs::path& file) {
    try {
        return readSiteConfiguration(absoluteFile(file), readWholeFile(file).bytes);
    } catch (const ConfigurationError&) {
        throw;
    } catch (const FileError& error) {
        failToRead(error);
    }
}

SiteConfiguration defaultSiteConfiguration(const fs::path& folder) {
    constexpr const char* ConnectString = "DSN=Orvane;UID=WWWappsOrvane;PWD=";
    SiteConfiguration result;
    result.folder = absoluteFrom(fs::current_path(), folder);
    result.registry = result.folder / "velmora.reg";
    result.projectRoot = result.folder;
    result.drives = WindowsPaths({{'C', result.folder / "drive_c"}});
    result.catalogue = result.folder / "catalogue.json";
    result.connectString = ConnectString;
    result.labelConnectString = ConnectString;
    return result;
}

std::optional<fs::path> findSiteConfiguration(const fs::path& page) {
    // By the names alone: a folder that is a link is left to where the link stands.
    for (std::string folder = folderOf(page).native();;) {
        while (folder.ends_with('/'))
            folder.pop_back();
        const std::string file = folder + '/' + FileName;
        struct stat status {};
        if (stat(file.c_str(), &status) == 0) {
            if (!S_ISDIR(status.st_mode)) return file;
        } else if (const int reason = errno; !meansNotThere(reason)) {
            throw ConfigurationError(folder, std::string("cannot be searched for ") + FileName +
                                                 ": " + std::generic_category().message(reason));
        }
        if (folder.empty()) return std::nullopt;
        folder.erase(folder.rfind('/'));
    }
}

// ---- configurations by page ---------------------------------------------------------------------

struct SiteConfigurations::Cache {
    std::optional<fs::path> only;
    std::mutex mutex;
    std::map<fs::path, FileCache<SiteConfiguration>> files;
    std::map<fs::path, std::shared_ptr<const SiteConfiguration>> defaults;  // by folder
};

SiteConfigurations::SiteConfigurations(std::optional<fs::path> only)
    : cache_(std::make_unique<Cache>()) {
    if (only) cache_->only = absoluteFile(*only);
}

SiteConfigurations::~SiteConfigurations() = default;

std::shared_ptr<const SiteConfiguration> SiteConfigurations::forPage(const fs::path& page) {
    const auto file = cache_->only ? cache_->only : findSiteConfiguration(page);
    std::unique_lock lock(cache_->mutex);
    if (!file) {
        const auto folder = folderOf(page);
        auto& configuration = cache_->defaults[folder];
        if (!configuration) {
            configuration =
                std::make_shared<const SiteConfiguration>(defaultSiteConfiguration(folder));
        }
        return configuration;
    }
    const auto read = [](const fs::path& name, std::string_view bytes) {
        return readSiteConfiguration(name, bytes);
    };
    auto& known = cache_->files.try_emplace(*file, *file, read).first->second;
    lock.unlock();
    try {
        return known.current();
    } catch (const ConfigurationError&) {
        throw;
    } catch (const FileError& error) {
        failToRead(error);
    }
}

}  // namespace headerdtc
