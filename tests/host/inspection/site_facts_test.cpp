#include "host/inspection/site_facts.h"

#include "support/prologue.h"
#include "support/temp_site.h"

namespace headerdtc::site_facts_test {

class SiteFactsTest : public Test {
  protected:
    SiteFacts::Functions functionsOf(const std::string& page) {
        site.write("pages/page.asp", page);
        SiteFacts facts(sites.forPage(site / "pages/page.asp"));
        return facts.functionsOf(page, site / "pages/page.asp");
    }
    static std::string include(const std::string& kind, const std::string& path) {
        return "<!--#include " + kind + "=\"" + path + "\"-->\n";
    }

    TempSite site;
    Sites sites;
};

TEST_F(SiteFactsTest, APageIncludesFilesOfItsSiteAndNoOthers) {
    const TempFolder outside;
    outside.write("secret.inc", "<% Function Secret() %>");
    site.write("inc/shared.inc", "<% Function Shared() %>");
    site.write("c/Suite/suite.inc", "<% Function Suite() %>");
    site.write("c/Suite/published.inc", "<% Function Published() %>");
    const std::string secret = (outside / "secret.inc").string();
    const std::string up = "../../../../../../..";
    const auto found =
        functionsOf(include("file", "..\\INC\\Shared.inc") + include("virtual", "\\suite.inc") +
                    include("file", secret) + include("file", up + secret) +
                    include("virtual", up + secret) + include("virtual", secret) +
                    include("virtual", "Z:" + secret) + include("file", "../published.inc"));
    // Published, the pages lie below the install directory.
    EXPECT_THAT(found, Contains("PUBLISHED"));
    EXPECT_THAT(found, Contains("SHARED"));
    EXPECT_THAT(found, Contains("SUITE"));
    EXPECT_THAT(found, Not(Contains("SECRET")));

    SiteFacts facts(sites.forPage(site / "pages/page.asp"));
    EXPECT_TRUE(facts.find("inc/shared.inc"));
    EXPECT_FALSE(facts.find(up + secret));

    // What the site itself links to is its own choice.
    fs::create_symlink(secret, site / "inc/linked.inc");
    EXPECT_THAT(functionsOf(include("file", "../inc/linked.inc")), Contains("SECRET"));
}

// Each file includes itself under two longer names, which without a look at the real file would be
// more names than could ever be read.
TEST_F(SiteFactsTest, LoopsOfFoldersAndIncludesEnd) {
    for (const char* link : {"a", "b"})
        fs::create_directory_symlink(".", site / link);
    site.write("loop.inc", "<% Function Loop() %>" + include("file", "a/loop.inc") +
                               include("file", "b/loop.inc"));
    EXPECT_THAT(functionsOf(include("file", "../loop.inc")), Contains("LOOP"));
}

}  // namespace headerdtc::site_facts_test
