#pragma once

#include "cli/commands.h"
#include "host/catalogue_import/database_tables.h"
#include "host/inspection/where_used.h"

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

// The commands that look at whole sites.
namespace headerdtc::cli {

struct CheckOptions {
    PathList paths;
    bool listRules = false;
    bool json = false, sarif = false, annotations = false;
    bool quiet = false;
    int jobs = 0;  // 0: one for each core
};

struct WhereOptions {
    WhereQuery query;
    PathList paths;  // none: this folder
    bool json = false;
    int jobs = 0;  // 0: one for each core
};

struct DoctorOptions {
    std::string place = ".";  // page or folder
    bool json = false;
};

// Of all commands on translations.
struct TranslationOptions {
    std::string place = ".";           // page or folder of the site
    std::vector<std::string> locales;  // empty: all that the database has
    bool json = false;
};

struct TranslationExportOptions {
    TranslationOptions common;
    std::string output;  // a file; empty: standard output
    bool onlyGaps = false;
    bool byteOrderMark = false;
};

struct TranslationImportOptions {
    TranslationOptions common;
    std::string file;
    bool dryRun = false;
    bool skipRefused = false;
};

struct CatalogueOptions {
    std::string place = ".";  // page or folder of the site
    std::string connectString;
    std::string file;  // the catalogue; empty: the site's
    TableFilter filter;
    MergeOptions merge;
    bool json = false;
    bool dryRun = false;
};

struct ReplayOptions {
    std::vector<std::string> paths;
    std::string script;   // a file; "-": standard input
    std::string control;  // ID; empty: each page's only or first control
    bool apply = false;
    int jobs = 0;  // 0: one for each core
};

int check(const CommonOptions& common, const CheckOptions& options);
int where(const CommonOptions& common, const WhereOptions& options);
int doctor(const CommonOptions& common, const DoctorOptions& options);
// Replays an automation script over many pages.
int replay(const CommonOptions& common, const ReplayOptions& options);
int checkTranslations(const CommonOptions& common, const TranslationOptions& options);
int exportTranslations(const CommonOptions& common, const TranslationExportOptions& options);
int importTranslations(const CommonOptions& common, const TranslationImportOptions& options);
// Compares the catalogue with a database.
int checkCatalogue(const CommonOptions& common, const CatalogueOptions& options);
// Brings it up to the database.
int importCatalogue(const CommonOptions& common, const CatalogueOptions& options);

// A command of the command line and what it does.
struct Command {
    CLI::App* app;
    std::function<int()> run;
};

// Adds them to the command line. The options live as long as what is returned.
std::vector<Command> addSiteCommands(CLI::App& app, const CommonOptions& common);

}  // namespace headerdtc::cli
