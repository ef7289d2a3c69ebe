#include "host/setup/site_setup.h"

#include "host/files/file_replacer.h"
#include "host/setup/starter_files.h"
#include "host/site/site.h"
#include "platform/runtime_error.h"
#include "runtime/runtime_text.h"
#include "scripts/install_directory.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <toml++/toml.h>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view DataSourceName = "Translations";
constexpr std::string_view StarterCatalogue = R"({"providers": [
  {"name": "Example",
   "zeko": {"fields": [
     {"number": 1, "name": "NUMBER"}, {"number": 2, "name": "NAME"}, {"number": 3, "name": "CITY"}],
    "keyFields": ["NUMBER"]},
   "eai": {"groups": [
     {"name": "EXAMPLE", "fields": ["NUMBER", "NAME", "CITY"]}],
    "keyFields": ["NUMBER"]}}
]}
)";

// A text as TOML writes it, with its quotation marks.
std::string quoted(const std::string& text) {
    std::ostringstream out;
    out << toml::value<std::string>(text);
    return out.str();
}

std::string configurationText(const SiteSetup& setup) {
    std::string text =
        "# A HeaderDTC site. Relative paths are relative to this folder.\n\ncode_page = " +
        quoted(setup.codePage) + "  # of every page without a UTF-8 byte-order mark\n" +
        "registry = " + quoted(setup.registry) +
        "  # export that says where the suite is installed\n\n[project]\nroot = " +
        quoted(setup.root) + "  # the pages\n\n[drives]\n";
    for (const auto& [letter, folder] : setup.drives)
        text += std::string(1, letter) + " = " + quoted(folder) + "\n";
    text += "\n[datasource]\ncatalogue = " + quoted(setup.catalogue) +
            "  # data providers with their fields\n\n[translations]\n";
    const bool hasFile = !setup.translations.empty();
    const std::string connect =
        quoted(hasFile ? "DSN=" + std::string(DataSourceName) : setup.connectString);
    text += "connect_string = " + connect + "\nlabel_connect_string = " + connect + "\n";
    if (hasFile) text += "odbc_ini = \"odbc.ini\"\n";
    return text;
}

std::string odbcIniText(const SiteSetup& setup) {
    return "; The translation database. A relative file is taken from this folder.\n[" +
           std::string(DataSourceName) + "]\nDriver   = SQLite3\nDatabase = " + setup.translations +
           "\nTimeout  = 5000\n";
}

std::string registryText(std::string directory) {
    for (std::size_t at = 0; (at = directory.find('\\', at)) != std::string::npos; at += 2)
        directory.insert(at, 1, '\\');
    constexpr std::string_view Root = "HKLM";
    const auto valueAt = InstallDirValue.rfind('\\');
    return "REGEDIT4\n\n[HKEY_LOCAL_MACHINE" +
           std::string(InstallDirValue.substr(Root.size(), valueAt - Root.size())) + "]\n\"" +
           std::string(InstallDirValue.substr(valueAt + 1)) + "\"=\"" + directory + "\"\n";
}

// One statement after the other; lines of comment are none.
void execute(Connection& connection, std::string_view script) {
    std::string statement;
    while (!script.empty()) {
        const std::string_view line = script.substr(0, script.find('\n'));
        script.remove_prefix(std::min(line.size() + 1, script.size()));
        if (line.starts_with("--")) continue;
        statement.append(line).append("\n");
        if (!line.ends_with(';')) continue;
        connection.Execute(statement, nullptr, -1);
        statement.clear();
    }
}

class Setup {
  public:
    explicit Setup(const SiteSetup& wanted)
        : wanted_(wanted), folder_(fs::absolute(wanted.folder)) {}

    std::vector<SetupPart> make() {
        file("configuration", folder_ / "headerdtc.toml", configurationText(wanted_));
        if (!parts_.back().problem.empty() || !read()) return parts_;
        const SiteConfiguration& site = *site_;
        folder("pages", site.projectRoot);
        for (const auto& [letter, drive] : site.drives.drives())
            folder(std::string("drive ") + letter, drive);
        file("registry export", site.registry, registryText(wanted_.installDirectory));
        installation();
        if (wanted_.catalogueDatabase.empty()) file("catalogue", site.catalogue, StarterCatalogue);
        translations();
        return parts_;
    }

  private:
    // Adds a part; what goes wrong while it is made is its problem.
    void part(std::string name, const fs::path& file, const std::function<void()>& make) {
        std::error_code ignored;
        SetupPart part{std::move(name), file, !fs::exists(file, ignored), {}};
        try {
            if (part.isNew) make();
        } catch (const std::exception& error) {
            part.problem = error.what();
        }
        parts_.push_back(std::move(part));
    }
    void file(std::string name, const fs::path& file, std::string_view bytes) {
        part(std::move(name), file, [&] {
            fs::create_directories(file.parent_path());
            FileReplacer replacer;
            replacer.create(file, bytes);
            const std::string problem = replacer.commit().front().problem;
            if (!problem.empty()) throw FileError(file.string(), problem);
        });
    }
    void folder(std::string name, const fs::path& folder) {
        part(std::move(name), folder, [&] { fs::create_directories(folder); });
    }

    bool read() {
        try {
            site_ = readSiteConfiguration(parts_.back().file);
        } catch (const std::exception& error) {
            parts_.back().problem = error.what();
        }
        return site_.has_value();
    }

    // Where the suite is installed nothing is added: what is missing there has to come from it.
    void installation() {
        Site site(std::make_shared<SiteConfiguration>(*site_));
        const std::string directory = installDirectoryOf(site.registry);
        if (directory.empty()) return;
        try {
            std::error_code ignored;
            if (fs::exists(site_->drives.toLocal(directory), ignored)) return;
            file("template", site_->drives.toLocal(directory + std::string(TemplateFile)),
                 StarterTemplate);
            file("stylesheet", site_->drives.toLocal(directory + "xsl\\Generic.xsl"),
                 StarterStylesheet);
        } catch (const RuntimeError& error) {
            parts_.push_back({"template", directory, true, error.what()});
        }
    }

    void translations() {
        if (site_->odbcIni.empty()) return;
        file("data source", site_->odbcIni, odbcIniText(wanted_));
        if (!parts_.back().isNew || !parts_.back().problem.empty()) return;
        const fs::path database = folder_ / wanted_.translations;
        bool isNew = false;
        file("translations", database, "");
        isNew = parts_.back().isNew && parts_.back().problem.empty();
        if (!isNew) return;
        try {
            Site site(std::make_shared<SiteConfiguration>(*site_));
            const auto connection = site.database.createConnection();
            connection->Open(site_->connectString, "", "", -1);
            execute(*connection, StarterTables);
        } catch (const RuntimeError& error) {
            // An empty file would look like a database that somebody emptied.
            std::error_code ignored;
            fs::remove(database, ignored);
            parts_.back().problem = error.what();
        }
    }

    const SiteSetup& wanted_;
    const fs::path folder_;
    std::optional<SiteConfiguration> site_;
    std::vector<SetupPart> parts_;
};

}  // namespace

std::vector<SetupPart> setUpSite(const SiteSetup& setup) {
    return Setup(setup).make();
}

}  // namespace headerdtc
