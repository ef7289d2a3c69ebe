#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace headerdtc {

// What a new site is to be like. Files and folders are as headerdtc.toml has them, taken from the
// site's folder where they are relative.
struct SiteSetup {
    std::filesystem::path folder = ".";
    std::string root = ".";  // of the pages
    std::map<char, std::string> drives = {{'C', "drive_c"}};
    std::string registry = "velmora.reg";
    // The suite's, a Windows path with its drive, for a registry export that is not there yet.
    std::string installDirectory = "C:\\Sites\\Main";
    // The connect string of a database whose tables become the catalogue, or a file with a list of
    // fields; empty: an example of one data provider does.
    std::string catalogueSource;
    // An SQLite file, which is made with its tables, or the connect string of a database.
    std::string translations = "translations.sqlite";
};

// What became of one part of a site.
struct SetupPart {
    std::string part;  // "configuration"
    std::filesystem::path file;
    bool isNew;           // false: it was there and stays as it is
    std::string problem;  // why it could not be made; empty when it is there
};

// Makes a site in a folder: headerdtc.toml, and what it names. Nothing that is there is changed,
// and a headerdtc.toml that is there decides where the rest belongs. A drive without a suite gets a
// template and a stylesheet to start with. Never throws for the sake of one part.
std::vector<SetupPart> setUpSite(const SiteSetup& setup);

}  // namespace headerdtc
