#include "host/rename/rename.h"

#include "host/inspection/harbour_site.h"

namespace headerdtc::rename_test {

using Outcome = PageChange::Outcome;

// "PROPERTY=AFTER" for all that is renamed in what a control stores.
std::vector<std::string> renamed(const HarbourSite::Params& params, const Renaming& renaming) {
    std::vector<std::string> names;
    for (const RenamedText& text : renameStored(params, renaming).texts)
        names.push_back(text.property + "=" + text.after);
    return names;
}

Renaming field(const char* provider, const char* from, const char* to) {
    return Renaming::ofField(provider, from, to);
}

TEST(Rename, ReachesEveryPlaceThatNamesIt) {
    const auto page = HarbourSite::with(
        "EAIAvailableFields0=SHIP.FLAG|ZEKOAvailableFields0=  2 - FLAG|"
        "ZEKOAvailableFieldsLinked0= 1 - BERTH|"
        "ZEKOToLinkKeyFields0=BERTH|ZEKOI18NFieldValues0=3 - BERTH|"
        "BERTHUserDefinedScript=BERTH|ZEKOCriteria2_3=BERTH");
    EXPECT_THAT(renamed(page, Renaming::ofProvider("Ships", "Vessels")),
                ElementsAre("DataProvider=Vessels"));
    EXPECT_THAT(renamed(page, Renaming::ofProvider("Berths", "Quays")),
                ElementsAre("LinkedDataProvider=Quays"));
    EXPECT_THAT(
        renamed(page, field("Ships", "BERTH", "QUAY")),
        ElementsAre("ZEKOReturnFields1=3 - QUAY", "ZEKOCriteria1_1=QUAY", "ZEKOKeyFieldnames1=QUAY",
                    "ZEKOLinkFromFields1=3 - QUAY", "ZEKOI18NFieldValues0=3 - QUAY"));
    EXPECT_THAT(renamed(page, field("Berths", "BERTH", "QUAY")),
                ElementsAre("ZEKOLinkToFields1=QUAY", "ZEKOAvailableFieldsLinked0= 1 - QUAY",
                            "ZEKOToLinkKeyFields0=QUAY"));
    EXPECT_THAT(renamed(page, field("Ships", "FLAG", "STATE")),
                ElementsAre("EAIAvailableFields0=SHIP.STATE", "ZEKOAvailableFields0=  2 - STATE"));
    EXPECT_THAT(renamed(page, field("Ships", "2 - FLAG", "12 - FLAG")),
                ElementsAre("ZEKOAvailableFields0= 12 - FLAG"));
    EXPECT_THAT(renamed(page, field("Ships", "SHIP.IMO", "HULL.NUMBER")),
                ElementsAre("EAIReturnFields0=HULL.NUMBER"));
    for (const char* other : {"ship", "BERT", "3"})
        EXPECT_THAT(renamed(page, field("Ships", other, "X")), IsEmpty()) << other;
}

// A key has a name alone, which two record groups may have.
TEST(Rename, LeavesAKeyToTheEntryThatKeepsItsName) {
    const HarbourSite::Params page = {{"EAIReturnFields0", "SHIP.IMO"},
                                      {"EAIAvailableFields0", "CREW.IMO"},
                                      {"EAIKeyFieldnames0", "IMO"},
                                      {"DataProvider", "Ships"}};
    EXPECT_THAT(renamed(page, field("Ships", "SHIP.IMO", "SHIP.NO")),
                ElementsAre("EAIReturnFields0=SHIP.NO"));
    EXPECT_THAT(renamed(page, field("Ships", "IMO", "NO")),
                ElementsAre("EAIReturnFields0=SHIP.NO", "EAIAvailableFields0=CREW.NO",
                            "EAIKeyFieldnames0=NO"));
}

TEST(Rename, RefusesWhatWouldBeThereTwiceAndWhatIsNoName) {
    EXPECT_NE(renameStored(HarbourSite::ships(), field("Ships", "IMO", "BERTH")).conflict, "");
    EXPECT_EQ(
        renameStored(HarbourSite::with("ZEKOReturnFields2=1 - IMO"), field("Ships", "IMO", "NO"))
            .conflict,
        "");
    for (const auto& [from, to] :
         std::initializer_list<std::pair<const char*, const char*>>{{"", "A"},
                                                                    {"A", " "},
                                                                    {"A", "A "},
                                                                    {"A", "B.C"},
                                                                    {"1 - A", "B"},
                                                                    {"1 - A", "x - B"},
                                                                    {"A.B", "A."},
                                                                    {"A", "B\n"}})
        EXPECT_THROW(field("Ships", from, to), std::invalid_argument) << from << " " << to;
}

// The script goes along where it was up to date, be the catalogue's name the old or the new one.
TEST(Rename, GivesAScriptThatWasUpToDateTheNewName) {
    HarbourSite site;
    site.writePage("page.asp", HarbourSite::ships());
    site.generate("page.asp");
    const auto renaming = Renaming::ofProvider("Ships", "Vessels");
    const auto rename = [&] {
        Sites sites;
        return renameInPage(site / "page.asp", sites, renaming);
    };
    const PageRenaming before = rename();
    ASSERT_EQ(before.outcome, Outcome::Changed);
    EXPECT_TRUE(before.isGenerated);
    EXPECT_THAT(before.after, HasSubstr("\t<PARAM NAME=\"DataProvider\" VALUE=\"Vessels\">"));
    EXPECT_THAT(before.after, HasSubstr("' Vessels Berths"));
    std::string catalogue = readWholeFile(site / "catalogue.json").bytes;
    site.write("catalogue.json", catalogue.replace(catalogue.find("Ships"), 5, "Vessels"));
    EXPECT_EQ(rename().after, before.after);
    site.write("page.asp", before.after);
    EXPECT_EQ(rename().outcome, Outcome::Unchanged);
    EXPECT_THAT(site.inspect("page.asp").findings, IsEmpty());

    site.writePage("page.asp", HarbourSite::ships());
    EXPECT_FALSE(rename().isGenerated);
    site.writeTemplate("");
    std::filesystem::remove(site / "c/Suite/Orvane/include/DTC_TEMPLATE.ASP");
    EXPECT_EQ(rename().outcome, Outcome::Failed);
    site.write("page.asp", "<html>");
    EXPECT_EQ(rename().outcome, Outcome::NoControl);
}

}  // namespace headerdtc::rename_test
