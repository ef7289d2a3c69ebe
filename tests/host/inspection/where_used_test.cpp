#include "host/inspection/where_used.h"

#include "host/inspection/harbour_site.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;
using testing::HarbourSite;
using Kind = WhereQuery::Kind;

class Where : public ::testing::Test {
  protected:
    Where() { site.writePage("page.asp", HarbourSite::ships()); }

    // The properties that use it, in the order of the page.
    std::vector<std::string> uses(Kind kind, const std::string& value,
                                  const std::string& provider = "") {
        const PageUses found =
            WhereUsed(sites, {kind, value, provider}).lookInto(site / "page.asp");
        EXPECT_FALSE(found.failure);
        std::vector<std::string> properties;
        for (const Use& use : found.uses)
            properties.push_back(use.item.property);
        return properties;
    }

    HarbourSite site;
    Sites sites;
};

TEST_F(Where, FindsAFieldInEveryRoleByNameAndByEntry) {
    EXPECT_THAT(uses(Kind::Field, "berth"),
                ElementsAre("ZEKOReturnFields1", "ZEKOCriteria1_1", "ZEKOKeyFieldnames1",
                            "ZEKOLinkFromFields1", "ZEKOLinkToFields1"));
    EXPECT_THAT(uses(Kind::Field, "BERTH", "Berths"), ElementsAre("ZEKOLinkToFields1"));
    EXPECT_THAT(uses(Kind::Field, "1 - IMO"),
                ElementsAre("ZEKOReturnFields0", "ZEKOI18NFieldnames0"));
    EXPECT_THAT(uses(Kind::Field, "ship.imo"), ElementsAre("EAIReturnFields0"));
    EXPECT_THAT(uses(Kind::Field, "FLAG"), IsEmpty());
}

TEST_F(Where, FindsProvidersAndFiles) {
    EXPECT_THAT(uses(Kind::Provider, "SHIPS"), ElementsAre("DataProvider"));
    EXPECT_THAT(uses(Kind::Provider, "Berths"), ElementsAre("LinkedDataProvider"));
    for (const char* path : {"Include/Tides.asp", "\\include\\TIDES.asp", "tides.asp"})
        EXPECT_THAT(uses(Kind::Include, path), ElementsAre("ExtraIncludes0")) << path;
    EXPECT_THAT(uses(Kind::Include, "Other/Tides.asp"), IsEmpty());
    EXPECT_THAT(uses(Kind::Stylesheet, "Generic.xsl"), ElementsAre("XSLFilename"));
}

}  // namespace
}  // namespace headerdtc
