// Sets up a site: asks what it is to be like, makes it, and examines it.

#include "cli/output.h"
#include "cli/site_commands.h"
#include "host/setup/site_setup.h"

#include <filesystem>
#include <iostream>

namespace headerdtc::cli {
namespace {

namespace fs = std::filesystem;

// Raised where an answer is missing: WrongUsage.
struct NoAnswer : std::runtime_error {
    NoAnswer()
        : std::runtime_error(
              "headerdtc: there is no answer to read; --yes takes the ones in brackets") {}
};

// Asks for what no option gave. An empty answer is the one in brackets.
void ask(const std::string& question, std::string& answer) {
    std::fprintf(stderr, "%s [%s]: ", question.c_str(), answer.c_str());
    std::fflush(stderr);
    std::string line;
    if (!std::getline(std::cin, line)) throw NoAnswer();
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) answer = line;
}

void askForAll(const InitOptions& options, SiteSetup& setup) {
    if (!options.hasRoot) ask("Folder of the pages", setup.root);
    if (!options.hasDrives)
        ask("Folder that drive " + std::string(1, setup.drives.front().first) + " leads to",
            setup.drives.front().second);
    if (!options.hasRegistry) ask("Registry export of the suite", setup.registry);
    std::error_code ignored;
    if (!options.hasInstallDirectory && !fs::exists(setup.folder / setup.registry, ignored))
        ask("It is not there and will be made. Install directory of the suite",
            setup.installDirectory);
    if (!options.hasCatalogueDatabase)
        ask("Connect string of a database whose tables the pages show; none: an example",
            setup.catalogueDatabase);
    if (!options.hasTranslations)
        ask("Translations: an SQLite file, or a connect string", setup.translations);
}

void print(const std::vector<SetupPart>& parts) {
    for (const SetupPart& part : parts) {
        const char* const outcome = !part.problem.empty() ? "failed  "
                                    : part.isNew          ? "made    "
                                                          : "kept    ";
        printLine(stdout, outcome + part.file.string() +
                              (part.problem.empty() ? "" : ": " + part.problem));
    }
}

}  // namespace

int init(const CommonOptions& common, const InitOptions& options) {
    return guarded([&] {
        SiteSetup setup = options.setup;
        std::error_code ignored;
        const bool isThere = fs::exists(setup.folder / "headerdtc.toml", ignored);
        try {
            if (!options.yes && !isThere) askForAll(options, setup);
        } catch (const NoAnswer& error) {
            std::fprintf(stderr, "\n%s\n", error.what());
            return WrongUsage;
        }
        // A connect string has a keyword with a value; the name of a file may have anything else.
        if (setup.translations.find('=') != std::string::npos)
            setup.connectString = std::exchange(setup.translations, "");
        const auto parts = setUpSite(setup);
        print(parts);
        bool isWhole = true;
        for (const SetupPart& part : parts)
            isWhole = isWhole && part.problem.empty();
        if (isWhole && !setup.catalogueDatabase.empty()) {
            CatalogueOptions import;
            import.place = setup.folder.string();
            import.connectString = setup.catalogueDatabase;
            const int status = importCatalogue({}, import);
            if (status != Done) return static_cast<ExitStatus>(status);
        }
        printLine(stdout, "");
        (void)common;
        const int status = doctor({}, {.place = setup.folder.string()});
        return isWhole ? static_cast<ExitStatus>(status) : PageNotDone;
    });
}

}  // namespace headerdtc::cli
