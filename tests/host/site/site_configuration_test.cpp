#include "host/site/site_configuration.h"

#include "support/prologue.h"

namespace headerdtc::site_configuration_test {

class SiteConfigurationTest : public Test {
  protected:
    std::string problemOf(const std::string& toml) {
        const auto file = folder.write("headerdtc.toml", toml);
        auto problem = errorOf<ConfigurationError>([&] { readSiteConfiguration(file); });
        const auto prefix = file.string() + ':';
        return problem.starts_with(prefix) ? problem.substr(prefix.size()) : problem;
    }

    TempFolder folder;
};

TEST_F(SiteConfigurationTest, EveryKeyIsReadOrHasItsDefault) {
    const auto shown = [](const SiteConfiguration& read) {
        std::string drives;
        for (const auto& [letter, path] : read.drives.drives())
            drives += std::string(1, letter) + "=" + path.string() + " ";
        return std::vector<std::string>{
            read.file,      read.folder,        read.registry,           read.projectRoot, drives,
            read.catalogue, read.connectString, read.labelConnectString, read.odbcIni};
    };
    const std::string root = folder.path();
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
    const std::string site = root + "/site";
    EXPECT_EQ(read.codePage, CodePage("windows-1253"));
    EXPECT_THAT(shown(read),
                ElementsAre(site + "/headerdtc.toml", site, root + "/export.reg", site + "/pages",
                            "C=/srv/c D=" + site + "/drives/d Z=" + site + " ",
                            "/etc/catalogue.json", "", "DSN=Labels", site + "/odbc.ini"));

    const std::string standard = "DSN=Orvane;UID=WWWappsOrvane;PWD=";
    for (const auto& left : {readSiteConfiguration(folder.write("headerdtc.toml", "")),
                             readSiteConfiguration(folder.write("a.toml", "[drives]\n[project]")),
                             defaultSiteConfiguration(root)}) {
        EXPECT_EQ(left.codePage, CodePage("windows-1252"));
        EXPECT_THAT(shown(left),
                    ElementsAre(_, root, root + "/velmora.reg", root, "C=" + root + "/drive_c Z=/ ",
                                root + "/catalogue.json", standard, standard, ""));
    }
    EXPECT_EQ(defaultSiteConfiguration(root).file, "");
}

TEST_F(SiteConfigurationTest, FaultsNameTheirPlaceAndWhatIsKnown) {
    for (const auto& [toml, problem] : casesOf("host/cases/site_configuration.txt"))
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

}  // namespace headerdtc::site_configuration_test
