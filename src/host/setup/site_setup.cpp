#include "host/setup/site_setup.h"

#include "host/catalogue_import/catalogue_list.h"
#include "host/catalogue_import/catalogue_merge.h"
#include "host/catalogue_import/database_tables.h"
#include "host/files/file_replacer.h"
#include "host/files/whole_file.h"
#include "host/odbc/odbc_connect_string.h"
#include "host/odbc/odbc_ini.h"
#include "host/odbc/odbc_session.h"
#include "host/odbc/secrets.h"
#include "host/setup/starter_files.h"
#include "host/site/site.h"
#include "host/site/toml.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "runtime/runtime_text.h"
#include "scripts/scripts.h"

#include <functional>
#include <memory>
#include <sstream>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

constexpr const char* DataSourceName = "Translations";
constexpr std::string_view Drive = "C:\\";

// A text as TOML writes it, with its quotation marks.
std::string tomlText(const std::string& text) {
    std::ostringstream out;
    out << toml::toml_formatter(toml::value<std::string>(text), toml::format_flags::none);
    return out.str();
}

// Any other word is a file.
bool isConnectString(const std::string& text) {
    return text.find('=') != std::string::npos;
}

std::string configurationText(const SiteSetup& setup) {
    std::string text =
        "# A HeaderDTC site. Relative paths are taken from this folder.\n\n"
        "code_page = \"windows-1252\"  # of every page without a UTF-8 byte-order mark\n"
        "registry = " +
        tomlText(setup.registry) +
        "  # export that says where the suite is installed\n\n[project]\nroot = " +
        tomlText(setup.root) + "  # folder of the pages\n\n[drives]\n";
    for (const auto& [letter, folder] : setup.drives)
        text += std::string(1, letter) + " = " + tomlText(folder) + "\n";
    text +=
        "\n[datasource]\ncatalogue = \"catalogue.json\"  # data providers and their fields\n\n"
        "[translations]\n";
    const bool isFile = !isConnectString(setup.translations);
    const std::string connect =
        tomlText(isFile ? "DSN=" + std::string(DataSourceName) : setup.translations);
    text += "connect_string = " + connect + "\nlabel_connect_string = " + connect + "\n";
    if (isFile) text += "odbc_ini = \"odbc.ini\"\n";
    return text;
}

std::string registryText(std::string directory) {
    for (std::size_t at = 0; (at = directory.find('\\', at)) != std::string::npos; at += 2)
        directory.insert(at, 1, '\\');
    constexpr std::size_t Root = std::string_view("HKLM").size();
    const auto valueAt = InstallDirValue.rfind('\\');
    return "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE" +
           std::string(InstallDirValue.substr(Root, valueAt - Root)) + "]\r\n\"" +
           std::string(InstallDirValue.substr(valueAt + 1)) + "\"=\"" + directory + "\"\r\n";
}

std::string catalogueOf(const SiteSetup& setup, const Site& site) {
    const std::string& source = setup.catalogueSource;
    if (isConnectString(source))
        return catalogueText(
            mergeTables({}, readDatabaseTables(source, site.database.settings(), {})));
    if (!source.empty())
        return catalogueText(readCatalogueList(source, readWholeFile(source).bytes));
    const Catalogue::Zeko zeko{{{1, "NUMBER"}, {2, "NAME"}, {3, "CITY"}}, {"NUMBER"}};
    const Catalogue::Eai eai{{{"EXAMPLE", {"NUMBER", "NAME", "CITY"}}}, {"NUMBER"}};
    return catalogueText({{{"Example", zeko, eai}}});
}

// One statement after the other, each ending in its line; lines of comment are none.
void execute(OdbcSession& session, std::string_view script) {
    std::string statement;
    for (const std::string_view line : splitText(script, "\n")) {
        if (line.starts_with("--")) continue;
        statement.append(line).append("\n");
        if (!line.ends_with(';')) continue;
        session.free(session.execute(statement));
        statement.clear();
    }
}

class Setup {
  public:
    explicit Setup(const SiteSetup& wanted)
        : wanted_(wanted), folder_(fs::absolute(wanted.folder).lexically_normal()) {}

    std::vector<SetupPart> make() {
        file("configuration", folder_ / "headerdtc.toml",
             [&] { return configurationText(wanted_); });
        if (!read()) return parts_;
        const SiteConfiguration& site = *site_->configuration;
        folder("project root", site.projectRoot);
        for (const auto& [letter, drive] : site.drives.drives())
            folder(std::string("drive ") + letter, drive);
        file("registry export", site.registry,
             [&] { return registryText(wanted_.installDirectory); });
        if (parts_.back().isNew) installation();
        file("catalogue", site.catalogue, [&] { return catalogueOf(wanted_, *site_); });
        translations();
        return parts_;
    }

  private:
    // Adds a part, which is made unless it is there.
    void part(const std::string& name, const fs::path& file, const std::function<void()>& make) {
        std::error_code ignored;
        parts_.push_back({name, file, !fs::exists(file, ignored), ""});
        if (parts_.back().isNew) attempt(make);
    }
    // Does something for the last part; what goes wrong is its problem.
    void attempt(const std::function<void()>& work) {
        try {
            work();
        } catch (const fs::filesystem_error& error) {
            parts_.back().problem = "its folder cannot be made or read: " + error.code().message();
        } catch (const std::exception& error) {
            parts_.back().problem = maskSecrets(error.what());
        }
    }
    void file(const std::string& name, const fs::path& file,
              const std::function<std::string()>& text) {
        part(name, file, [&] {
            const std::string bytes = text();
            fs::create_directories(file.parent_path());
            createWholeFile(file, bytes);
        });
    }
    void folder(const std::string& name, const fs::path& folder) {
        part(name, folder, [&] { fs::create_directories(folder); });
    }

    // What holds from here on, be it new or not; false when it cannot be read.
    bool read() {
        if (!parts_.back().problem.empty()) return false;
        attempt([&] {
            site_.emplace(
                std::make_shared<SiteConfiguration>(readSiteConfiguration(parts_.back().file)));
        });
        return site_.has_value();
    }

    // Only where nobody has put a suite: what is missing in one has to come from it.
    void installation() {
        const std::string directory = wanted_.installDirectory + "\\";
        const WindowsPaths& drives = site_->configuration->drives;
        attempt([&] {
            if (!fs::is_empty(drives.toLocal(directory.substr(0, Drive.size())))) return;
            file("template", drives.toLocal(directory + std::string(TemplateFile)),
                 [] { return std::string(StarterTemplate); });
            file("stylesheet", drives.toLocal(directory + "xsl\\Generic.xsl"),
                 [] { return std::string(StarterStylesheet); });
        });
    }

    void translations() {
        const SiteConfiguration& site = *site_->configuration;
        const std::string source = OdbcConnectString(site.connectString).value("DSN");
        if (site.odbcIni.empty() || source.empty()) return;
        file("data source", site.odbcIni, [&] {
            return "; Where the translations are. A relative file is taken from this folder.\n[" +
                   source + "]\nDriver   = SQLite3\nDatabase = " + wanted_.translations +
                   "\nTimeout  = 5000\n";
        });
        std::optional<OdbcIniSection> section;
        attempt([&] { section = readOdbcIniSection(site.odbcIni, source); });
        const auto* driver = section ? section->entry("Driver") : nullptr;
        const auto* database = section ? section->entry("Database") : nullptr;
        if (driver && database && upperCase(driver->value).find("SQLITE") != std::string::npos)
            makeDatabase(site.folder / database->value);
    }

    // The driver is sent only to a file that is there. One that stays empty would look like a
    // database that somebody emptied.
    void makeDatabase(const fs::path& file) {
        this->file("translation database", file, [] { return std::string(); });
        if (!parts_.back().isNew || !parts_.back().problem.empty()) return;
        attempt([&] {
            OdbcSession session(site_->configuration->connectString, site_->database.settings());
            execute(session, StarterTables);
        });
        std::error_code ignored;
        if (!parts_.back().problem.empty()) fs::remove(file, ignored);
    }

    const SiteSetup& wanted_;
    const fs::path folder_;
    std::optional<Site> site_;
    std::vector<SetupPart> parts_;
};

}  // namespace

std::vector<SetupPart> setUpSite(const SiteSetup& setup) {
    return Setup(setup).make();
}

}  // namespace headerdtc
