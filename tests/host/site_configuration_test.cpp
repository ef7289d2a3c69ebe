#include "host/site/site_configuration.h"

#include "host/failures.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

namespace fs = std::filesystem;
using namespace headerdtc::testing;
using namespace ::testing;

constexpr const char* DefaultConnectString = "DSN=Orvane;UID=WWWappsOrvane;PWD=";

class SiteConfigurationTest : public ::testing::Test {
  protected:
    std::string problemOf(const std::string& toml) {
        const auto file = folder.write("headerdtc.toml", toml);
        auto problem = errorOf<ConfigurationError>([&] { readSiteConfiguration(file); });
        const auto prefix = file.string() + ':';
        return problem.starts_with(prefix) ? problem.substr(prefix.size()) : problem;
    }

    TempFolder folder;
};

TEST_F(SiteConfigurationTest, EveryKeyIsRead) {
    const auto read = readSiteConfiguration(folder.write("site/headerdtc.toml", R"(
code_page = "Windows-1253"
registry = "../export.reg"
[project]
root = "pages/"
[drives]
C = "/srv/c"
d = "drives/d"
z = "."
[datasource]
catalogue = "/etc/catalogue.json"
[translations]
connect_string = ""
label_connect_string = "DSN=Labels"
odbc_ini = "odbc.ini"
)"));
    const auto site = folder / "site";
    EXPECT_EQ(read.file, site / "headerdtc.toml");
    EXPECT_EQ(read.folder, site);
    EXPECT_EQ(read.codePage, CodePage("windows-1253"));
    EXPECT_EQ(read.registry, folder / "export.reg");
    EXPECT_EQ(read.projectRoot, site / "pages");
    const std::map<char, fs::path> drives = {
        {'C', "/srv/c"}, {'D', site / "drives/d"}, {'Z', site}};
    EXPECT_EQ(read.drives.drives(), drives);
    EXPECT_EQ(read.catalogue, "/etc/catalogue.json");
    EXPECT_EQ(read.connectString, "");
    EXPECT_EQ(read.labelConnectString, "DSN=Labels");
    EXPECT_EQ(read.odbcIni, site / "odbc.ini");
}

TEST_F(SiteConfigurationTest, WhatIsLeftOutHasItsDefault) {
    const auto& root = folder.path();
    for (const auto& read :
         {readSiteConfiguration(folder.write("headerdtc.toml", "")),
          readSiteConfiguration(folder.write("other.toml", "[drives]\n[project]\n")),
          defaultSiteConfiguration(root)}) {
        EXPECT_EQ(read.folder, root);
        EXPECT_EQ(read.codePage, CodePage("windows-1252"));
        EXPECT_EQ(read.registry, root / "velmora.reg");
        EXPECT_EQ(read.projectRoot, root);
        const std::map<char, fs::path> drives = {{'C', root / "drive_c"}, {'Z', "/"}};
        EXPECT_EQ(read.drives.drives(), drives);
        EXPECT_EQ(read.catalogue, root / "catalogue.json");
        EXPECT_EQ(read.connectString, DefaultConnectString);
        EXPECT_EQ(read.labelConnectString, DefaultConnectString);
        EXPECT_EQ(read.odbcIni, "");
    }
    EXPECT_EQ(defaultSiteConfiguration(root).file, "");
}

TEST_F(SiteConfigurationTest, FaultsNameTheirPlaceAndWhatIsKnown) {
    const std::pair<std::string, std::string> cases[] = {
        {"a = 1",
         "1:1: unknown key \"a\"; known are code_page, registry, [project], [drives], "
         "[datasource], [translations]"},
        {"\n[project]\n roots = \"x\"", "3:2: unknown key \"roots\" in [project]; known are root"},
        {"[translations]\nodbc.ini = \"x\"", "2:1: unknown key \"odbc\" in [translations]"},
        {"registry = 7", "1:12: \"registry\" has to be a text in quotes, not an integer"},
        {"registry = \"\"", "1:12: \"registry\" has to name a file or folder"},
        {"registry = \"a\\u0000\"", "1:12: \"registry\" has to name a file or folder"},
        {"project = \".\"", "1:11: \"project\" has to be a table, not a text"},
        {"[code_page]", "1:1: \"code_page\" has to be a text in quotes, not a table"},
        {"[drives]\nCD = \"x\"", "2:1: unknown key \"CD\" in [drives]; a drive is one letter"},
        {"[drives]\n1 = \"x\"", "2:1: unknown key \"1\" in [drives]"},
        {"[drives]\nC = [\"x\"]", "2:5: \"C\" has to be a text in quotes, not an array"},
        {"[drives]\nc = \"x\"\nC = \"y\"", "drive C is there twice"},
        {"code_page = \"klingon\"", "1:13: unknown code page \"klingon\""},
        {"code_page = \"big5\"", "1:13: the code page \"big5\" has characters of more than"},
        {"code_page = \"utf-16\"", "1:13: the lower half of the code page"},
        {"registry = \"üü\" x", "1:19: "},
        {"registry = ", "1:12: "},
        {"registry = \"a\"\nregistry = \"b\"", "2:"},
        {"registry = \"\xFF\"", "1:"},
        // Letters outside of texts, from both ranges that the library asks about.
        {"é = 1", "1:1: "},
        {"\xEF\xB3\xBF# T", "1:"},
        {"a = \"\"\"\\\n é\"\"\" ѐ", "2:"},
    };
    for (const auto& [toml, problem] : cases)
        EXPECT_THAT(problemOf(toml), HasSubstr(problem)) << toml;
    EXPECT_THAT(
        errorOf<ConfigurationError>([&] { readSiteConfiguration(folder / "none.toml"); }),
        StartsWith((folder / "none.toml").string() +
                   ": cannot be read: No such file or directory; the site's configuration"));
}

TEST_F(SiteConfigurationTest, IsLookedForFromThePageUpwards) {
    const auto outer = folder.write("headerdtc.toml", "");
    const auto inner = folder.write("a/b/headerdtc.toml", "");
    folder.write("a/b/c/headerdtc.toml/is_a_folder", "");
    fs::create_directory_symlink(folder / "a/b", folder / "link");
    EXPECT_EQ(findSiteConfiguration(folder / "a/b/c/no/page.asp"), inner);
    EXPECT_EQ(findSiteConfiguration(folder / "a/b"), inner);
    EXPECT_EQ(findSiteConfiguration(folder / "a/page.asp"), outer);
    EXPECT_EQ(findSiteConfiguration(folder / "a/b/../page.asp"), outer);
    EXPECT_EQ(findSiteConfiguration(folder / "link/c"), folder / "link/headerdtc.toml");
    EXPECT_EQ(findSiteConfiguration("/page.asp"), std::nullopt);
}

TEST_F(SiteConfigurationTest, PagesOfASiteShareItUntilItsFileChanges) {
    SiteConfigurations configurations;
    const auto page = folder / "sub/page.asp";
    const auto none = configurations.forPage(page);
    EXPECT_EQ(none->folder, folder / "sub");
    EXPECT_EQ(configurations.forPage(folder / "sub/other.asp"), none);

    folder.write("headerdtc.toml", "registry = \"one.reg\"");
    const auto one = configurations.forPage(page);
    EXPECT_EQ(one->registry, folder / "one.reg");
    EXPECT_EQ(configurations.forPage(folder / "other.asp"), one);
    folder.write("headerdtc.toml", "registry = \"two.reg\"");
    EXPECT_EQ(configurations.forPage(page)->registry, folder / "two.reg");
    folder.write("headerdtc.toml", "registry =");
    EXPECT_THROW(configurations.forPage(page), ConfigurationError);

    const auto other = folder.write("elsewhere/site.toml", "");
    SiteConfigurations only(other);
    EXPECT_EQ(only.forPage(page)->file, other);
    fs::remove(other);
    EXPECT_THROW(only.forPage(page), ConfigurationError);
}

}  // namespace
}  // namespace headerdtc
