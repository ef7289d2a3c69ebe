#include "host/catalogue_import/catalogue_merge.h"

#include "host/catalogue_import/database_tables.h"
#include "support/prologue.h"

namespace headerdtc::catalogue_merge_test {

Catalogue parse(const std::string& text) {
    return Catalogue::parse("catalogue.json", text);
}

std::vector<std::string> changesOf(const MergedCatalogue& merged) {
    std::vector<std::string> changes;
    for (const CatalogueChange& change : merged.changes)
        changes.push_back(std::string(1, static_cast<char>(change.kind)) + " " + change.provider +
                          ": " + change.what);
    return changes;
}

const std::vector<DatabaseTable> HarbourTables = {
    {"SHIP", {"IMO", "FLAG", "LENGTH"}, {"IMO"}},
    {"CREW", {"IMO", "NAME"}, {"IMO", "NAME"}},
};

const char* const Ships = R"({"providers": [
  {"name": "Ships",
   "zeko": {"fields": [{"number": 4, "name": "Imo"}, {"number": 9, "name": "OWNER"}],
            "keyFields": ["IMO", "OWNER"]},
   "eai": {"groups": [{"name": "Ship", "fields": ["FLAG", "Imo", "OWNER"]}], "keyFields": []}}]})";

TEST(CatalogueMerge, MakesAProviderOfEachTableOfANewDatabase) {
    const auto merged = mergeTables({}, HarbourTables, {});
    EXPECT_EQ(catalogueText(merged.catalogue), R"({"providers": [
  {"name": "SHIP",
   "zeko": {"fields": [{"number": 1, "name": "IMO"}, {"number": 2, "name": "FLAG"},
                       {"number": 3, "name": "LENGTH"}],
            "keyFields": ["IMO"]},
   "eai": {"groups": [{"name": "SHIP", "fields": ["IMO", "FLAG", "LENGTH"]}],
           "keyFields": ["IMO"]}},
  {"name": "CREW",
   "zeko": {"fields": [{"number": 1, "name": "IMO"}, {"number": 2, "name": "NAME"}],
            "keyFields": ["IMO", "NAME"]},
   "eai": {"groups": [{"name": "CREW", "fields": ["IMO", "NAME"]}],
           "keyFields": ["IMO", "NAME"]}}]}
)");
    // Once it is there, nothing changes any more.
    EXPECT_THAT(mergeTables(parse(catalogueText(merged.catalogue)), HarbourTables, {}).changes,
                IsEmpty());
}

TEST(CatalogueMerge, GathersTablesUnderOneProvider) {
    const auto merged = mergeTables({}, HarbourTables, {.provider = "Port"});
    ASSERT_EQ(merged.catalogue.providers.size(), 1U);
    const auto& port = merged.catalogue.providers[0];
    EXPECT_EQ(port.eai->groups.size(), 2U);
    ASSERT_EQ(port.zeko->fields.size(), 4U);  // IMO once
    EXPECT_EQ(port.zeko->fields[3].name, "NAME");
    EXPECT_THAT(port.zeko->keyFields, ElementsAre("IMO", "NAME"));
}

TEST(CatalogueMerge, KeepsNumbersAndSpellingsThatPagesKnow) {
    const auto merged = mergeTables(parse(Ships), {HarbourTables[0]}, {});
    EXPECT_THAT(
        changesOf(merged),
        ElementsAre("+ Ships: EAI Ship.LENGTH", "- Ships: EAI Ship.OWNER",
                    "- Ships: ZEKO 9 - OWNER", "+ Ships: ZEKO 10 - FLAG",
                    "+ Ships: ZEKO 11 - LENGTH", "~ Ships: ZEKO key fields IMO (were IMO, OWNER)",
                    "+ Ships: EAI key fields IMO"));
    const auto& ships = merged.catalogue.providers[0];
    EXPECT_THAT(ships.eai->groups[0].fields, ElementsAre("Imo", "FLAG", "LENGTH"));
    EXPECT_EQ(ships.zeko->fields[0].number, 4);
    EXPECT_EQ(ships.zeko->fields[0].name, "Imo");
}

TEST(CatalogueMerge, KeepsKeyFieldsBeyondThePrimaryKey) {
    Catalogue before = mergeTables({}, {HarbourTables[0]}, {}).catalogue;
    before.providers[0].zeko->keyFields = {"FLAG"};
    const auto kept = mergeTables(before, {HarbourTables[0]}, {});
    EXPECT_THAT(changesOf(kept), ElementsAre("~ SHIP: ZEKO key fields FLAG, IMO (were FLAG)"));
    const auto pruned = mergeTables(before, {HarbourTables[0]}, {.provider = "", .prune = true});
    EXPECT_THAT(changesOf(pruned), ElementsAre("~ SHIP: ZEKO key fields IMO (were FLAG)"));
}

TEST(CatalogueMerge, LeavesAloneWhatIsNotOfThisDatabase) {
    Catalogue before = parse(Ships);
    before.providers[0].eai->groups.push_back({"RADIO", {"CALLSIGN"}});
    before.providers.push_back({"Tides", Catalogue::Zeko{{{1, "HIGH"}}, {"HIGH"}}, std::nullopt});
    const std::vector<DatabaseTable> view = {{"SHIP", {"Imo", "FLAG", "OWNER"}, {}}};
    // The fields of the other group stay, and without a primary key the key fields do.
    const auto kept = mergeTables(before, view, {});
    EXPECT_THAT(changesOf(kept), ElementsAre("~ Ships: EAI order of Ship: Imo, FLAG, OWNER",
                                             "+ Ships: ZEKO 10 - FLAG"));
    const auto pruned = mergeTables(before, view, {.provider = "", .prune = true});
    EXPECT_THAT(changesOf(pruned),
                ElementsAre("~ Ships: EAI order of Ship: Imo, FLAG, OWNER",
                            "- Ships: EAI record group RADIO", "+ Ships: ZEKO 10 - FLAG"));
    // A provider keeps the families that it has.
    const auto tides = mergeTables(before, {{"TIDES", {"HIGH", "LOW"}, {}}}, {});
    EXPECT_FALSE(tides.catalogue.providers[1].eai);
    EXPECT_THAT(changesOf(tides), ElementsAre("+ Tides: ZEKO 2 - LOW"));
}

TEST(CatalogueText, IsReadBackAsItWas) {
    Catalogue catalogue;
    catalogue.providers.push_back({"Quote \" and \\", std::nullopt, Catalogue::Eai{}});
    auto& wide = catalogue.providers.emplace_back();
    wide.name = "Wide";
    wide.zeko.emplace();
    for (int i = 1; i <= 120; ++i)
        wide.zeko->fields.push_back({i, "FIELD" + std::to_string(i)});
    const std::string text = catalogueText(catalogue);
    const Catalogue back = parse(text);
    EXPECT_EQ(catalogueText(back), text);
    EXPECT_EQ(back.providers[0].name, "Quote \" and \\");
    EXPECT_EQ(back.find("Wide")->zeko->fields.size(), 120U);
    for (std::size_t begin = 0; begin < text.size(); begin = text.find('\n', begin) + 1)
        EXPECT_LE(text.find('\n', begin) - begin, 100U);
    EXPECT_EQ(catalogueText(Catalogue{}), "{\"providers\": []}\n");
}

TEST(TableFilter, NamesFitPatternsWithoutRegardToCase) {
    for (const char* pattern : {"*", "ship", "S*", "*p", "s?i*", "**hip", "*h*"})
        EXPECT_TRUE(fitsPattern("SHIP", pattern)) << pattern;
    for (const char* pattern : {"", "s", "hip", "ship?", "*x", "s*x*"})
        EXPECT_FALSE(fitsPattern("SHIP", pattern)) << pattern;
}

}  // namespace headerdtc::catalogue_merge_test
