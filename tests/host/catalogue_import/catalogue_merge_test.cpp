#include "host/catalogue_import/catalogue_merge.h"

#include "host/catalogue_import/catalogue_list.h"
#include "host/catalogue_import/database_tables.h"
#include "host/files/file_error.h"
#include "support/prologue.h"

namespace headerdtc::catalogue_merge_test {

Catalogue parse(const std::string& text) {
    return Catalogue::parse("catalogue.json", text);
}

std::vector<std::string> changesOf(const Catalogue& before, const Catalogue& after) {
    std::vector<std::string> changes;
    for (const CatalogueChange& change : changesBetween(before, after))
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
    const Catalogue made = mergeTables({}, HarbourTables);
    EXPECT_EQ(catalogueText(made), R"({"providers": [
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
    EXPECT_THAT(changesOf(made, mergeTables(parse(catalogueText(made)), HarbourTables)), IsEmpty());
}

TEST(CatalogueMerge, KeepsNumbersAndSpellingsThatPagesKnow) {
    const Catalogue before = parse(Ships), merged = mergeTables(before, {HarbourTables[0]});
    EXPECT_THAT(changesOf(before, merged),
                ElementsAre("- Ships: EAI Ship.OWNER", "+ Ships: EAI Ship.LENGTH",
                            "+ Ships: EAI key fields IMO", "- Ships: ZEKO 9 - OWNER",
                            "+ Ships: ZEKO 10 - FLAG", "+ Ships: ZEKO 11 - LENGTH",
                            "~ Ships: ZEKO key fields IMO (were IMO, OWNER)"));
    const auto& ships = merged.providers[0];
    EXPECT_THAT(ships.eai->groups[0].fields, ElementsAre("Imo", "FLAG", "LENGTH"));
    EXPECT_EQ(ships.zeko->fields[0].number, 4);
    EXPECT_EQ(ships.zeko->fields[0].name, "Imo");
}

TEST(CatalogueMerge, LeavesAloneWhatIsNotOfThisDatabase) {
    Catalogue before = parse(Ships);
    before.providers[0].eai->groups.push_back({"RADIO", {"CALLSIGN"}});
    before.providers.push_back({"Tides", Catalogue::Zeko{{{1, "HIGH"}}, {"HIGH"}}, std::nullopt});
    // The fields of the other group stay, and without a primary key the key fields do.
    EXPECT_THAT(changesOf(before, mergeTables(before, {{"SHIP", {"Imo", "FLAG", "OWNER"}, {}}})),
                ElementsAre("~ Ships: EAI order of the fields", "+ Ships: ZEKO 10 - FLAG"));
    // A provider keeps the families that it has, and key fields beyond the primary key.
    const Catalogue tides = mergeTables(before, {{"TIDES", {"HIGH", "LOW"}, {"LOW"}}});
    EXPECT_FALSE(tides.providers[1].eai);
    EXPECT_THAT(
        changesOf(before, tides),
        ElementsAre("+ Tides: ZEKO 2 - LOW", "~ Tides: ZEKO key fields HIGH, LOW (were HIGH)"));
}

TEST(CatalogueList, IsTakenFamilyByFamilyAndSaysWhatIsWrongOnWhichLine) {
    const Catalogue before = parse(Ships);
    const auto take = [&](const std::string& text) {
        return mergeList(before, readCatalogueList("fields.csv", text));
    };
    // As a spreadsheet leaves it: other columns, another order, semicolons.
    const Catalogue taken = take(
        "Family;Provider;Number;Field;Remark;Key;Group\r\n"
        "zeko;Ships;12;FLAG;new;2;\r\nZEKO;Ships;4;Imo;;1;SHIP\r\n"
        "EAI;Tugs;;IMO;;1;TUG\r\nEAI;Tugs;;IMO;;;OWNER\r\n");
    EXPECT_THAT(
        changesOf(before, taken),
        ElementsAre("- Ships: ZEKO 9 - OWNER", "+ Ships: ZEKO 12 - FLAG",
                    "~ Ships: ZEKO key fields Imo, FLAG (were IMO, OWNER)", "+ Tugs: data provider",
                    "+ Tugs: EAI TUG.IMO", "+ Tugs: EAI OWNER.IMO", "+ Tugs: EAI key fields IMO"));
    EXPECT_EQ(taken.providers[0].zeko->fields[0].number, 12);
    EXPECT_FALSE(taken.providers[1].zeko);

    constexpr const char* Head = "provider,family,group,number,field,key\n";
    const std::pair<const char*, const char*> faults[] = {
        {"Ships,zeko,,1,IMO,\n,zeko,,2,FLAG,\n", "fields.csv:3: the provider is missing"},
        {"Ships,zeko,,1,,\n", ":2: the field is missing"},
        {"Ships,sql,,1,IMO,\n", ":2: \"sql\" is no family; write ZEKO or EAI"},
        {"Ships,zeko,,one,IMO,\n", ":2: \"one\" is no number of a ZEKO field"},
        {"Ships,zeko,,0,IMO,\n", ":2: \"0\" is no number"},
        {"Ships,zeko,,1,IMO,\nShips,zeko,,1,FLAG,\n", ":3: the provider has another field"},
        {"Ships,eai,,,IMO,\n", ":2: the record group of the EAI field is missing"},
        {"Ships,eai,SHIP,,IMO,\nShips,eai,SHIP,,IMO,\n", ":3: the record group has the field"},
        {"Ships,eai,SHIP,,IMO,yes\n", ":2: \"yes\" is no place among the key fields"}};
    for (const auto& [rows, fault] : faults)
        EXPECT_THAT(errorOf<FileError>([&] { take(std::string(Head) + rows); }), HasSubstr(fault));
    EXPECT_THAT(errorOf<FileError>([&] { take("Ships,zeko,,1,IMO,\n"); }),
                HasSubstr("no column \"provider\""));
    EXPECT_THAT(errorOf<FileError>([&] { take(""); }), HasSubstr("no first line"));
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
