#include "host/inspection/stored_configuration.h"

#include "core/header_dtc.h"
#include "host/inspection/harbour_site.h"
#include "host/page/page_session.h"
#include "host/page/quiet_host.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;
using testing::HarbourSite;

std::vector<std::string> textsOf(const std::vector<StoredItem>& items) {
    std::vector<std::string> texts;
    for (const StoredItem& item : items)
        texts.push_back(item.text);
    return texts;
}

std::vector<std::string> itemsOf(const ListBox& list) {
    std::vector<std::string> items;
    for (int i = 0; i < list.ListCount(); ++i)
        items.push_back(list.List(i));
    return items;
}

StoredProperties demoProperties(const std::string& page) {
    const std::string file = std::string(HEADERDTC_SOURCE_DIR) + "/demo/" + page;
    const PageMarkup markup(file, readWholeFile(file).bytes, CodePage("windows-1252"));
    return markup.controls().at(0).properties;
}

// What is read without a control has to be what a control shows.
TEST(StoredConfiguration, IsWhatTheControlHolds) {
    const std::string page =
        std::string(HEADERDTC_SOURCE_DIR) + "/demo/customers/regions/overview.asp";
    Sites sites;
    const auto site = sites.forPage(page);
    const PageMarkup markup(page, readWholeFile(page).bytes, site->configuration->codePage);
    QuietHost host;
    OpenControl open(site, page, markup.controls().at(0), host.faces());
    HeaderDTC& dtc = open.dtc();
    const auto stored = readStoredConfiguration(markup.controls()[0].properties);

    EXPECT_EQ(stored.dataProvider.text, dtc.DataProvidersCombo.Text());
    EXPECT_EQ(stored.linkedDataProvider.text, dtc.linkedDataProvider);
    EXPECT_EQ(stored.stylesheet.text, dtc.XSLFilenameText.Text());
    EXPECT_EQ(textsOf(stored.includes), itemsOf(dtc.IncludeASPList));
    EXPECT_EQ(static_cast<int>(stored.scripts.size()), dtc.userDefinedScripts->Count());
    for (const Family family : BothFamilies) {
        const FamilyControls& live = dtc.family(family);
        const auto& own = stored.of(family);
        EXPECT_EQ(textsOf(own.returnFields), itemsOf(live.SelectedFieldsList));
        EXPECT_EQ(textsOf(own.linkedFields), itemsOf(live.SelectedLinkedFieldsList));
        EXPECT_EQ(static_cast<int>(own.translatedNames.size()), live.I18NFieldnamesList.SelCount());
        EXPECT_EQ(static_cast<int>(own.translatedValues.size()),
                  live.I18NFieldValuesList.SelCount());
        ASSERT_EQ(static_cast<int>(own.criteria.size()), live.CriteriaGrid.Rows() - 1);
        for (const auto& criterion : own.criteria) {
            EXPECT_EQ(criterion.key.text, live.CriteriaGrid.TextMatrix(criterion.row, 1));
            EXPECT_EQ(criterion.operation.text, live.CriteriaGrid.TextMatrix(criterion.row, 2));
            EXPECT_EQ(criterion.value.text, live.CriteriaGrid.TextMatrix(criterion.row, 3));
        }
        ASSERT_EQ(static_cast<int>(own.links.size()), live.LinksGrid.Rows() - 1);
        for (const auto& link : own.links) {
            EXPECT_EQ(link.from.text, live.LinksGrid.TextMatrix(link.row, 1));
            EXPECT_EQ(link.to.text, live.LinksGrid.TextMatrix(link.row, 2));
        }
        for (const auto& [value, type] : live.CriteriaType)
            EXPECT_EQ(own.typeOf(value), type);
    }
    EXPECT_THAT(stored.faults, IsEmpty());
}

TEST(StoredConfiguration, EveryItemNamesThePropertyThatHoldsIt) {
    const StoredProperties properties = demoProperties("customers/regions/overview.asp");
    int items = 0;
    forEachItem(readStoredConfiguration(properties),
                [&](StoredRole, std::optional<Family>, const StoredItem& item) {
                    const std::pair<std::string, std::string> stored(item.property, item.text);
                    EXPECT_THAT(properties, ::testing::Contains(stored));
                    ++items;
                });
    EXPECT_GT(items, 50);
}

TEST(StoredConfiguration, TakesNothingOnTrust) {
    const auto stored = readStoredConfiguration({{"ZEKOReturnFieldCount", "32767"},
                                                 {"ZEKOReturnFields0", "1 - IMO"},
                                                 {"EAICriteriaCount", "-5"},
                                                 {"NrOfExtraIncludes", "some"},
                                                 {"NrOfLinkedZEKOFields", "1e9"}});
    EXPECT_LT(stored.zeko.returnFields.size(), 10U);
    EXPECT_THAT(stored.eai.criteria, IsEmpty());
    ASSERT_EQ(stored.faults.size(), 2U);
    EXPECT_EQ(stored.faults[0].property, "NrOfLinkedZEKOFields");
    EXPECT_EQ(stored.faults[1].property, "NrOfExtraIncludes");
    EXPECT_FALSE(stored.hasLinkedProvider());
    EXPECT_FALSE(readStoredConfiguration({{"LinkedDataProvider", "ZEKOLinkedDataProvidersCombo"}})
                     .hasLinkedProvider());
}

}  // namespace
}  // namespace headerdtc
