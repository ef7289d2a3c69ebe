#include "host/automation/automation_session.h"
#include "support/temp_site.h"

#include <gmock/gmock.h>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <sstream>

namespace headerdtc {
namespace {

using testing::TempSite;
using Json = nlohmann::json;
using namespace ::testing;

class AutomationTest : public ::testing::Test {
  protected:
    AutomationTest() { site.write("page.asp", TempSite::page(TempSite::ordersParams())); }

    // The replies to some lines, the opening's first.
    std::vector<Json> converse(std::initializer_list<const char*> lines,
                               const std::string& control = "") {
        std::string input;
        for (const char* line : lines)
            input += std::string(line) + "\n";
        std::istringstream in(input);
        std::ostringstream out;
        opened = automatePage(sites, site / "page.asp", control, in, out);
        std::vector<Json> replies;
        std::istringstream answered(out.str());
        for (std::string line; std::getline(answered, line);)
            replies.push_back(Json::parse(line));
        return replies;
    }

    TempSite site;
    Sites sites;
    bool opened = false;
};

TEST_F(AutomationTest, AnswersTheOpeningAndEachLineAndEndsWithTheInput) {
    const auto replies = converse({R"({"do":"read","control":"ZEKOSelectedFieldsList"})", "",
                                   R"({"do":"read","control":"SaveCommand"})"});
    ASSERT_EQ(replies.size(), 4U);
    EXPECT_EQ(replies[0], Json::parse(R"({"ok":true,"events":[]})"));
    EXPECT_EQ(replies[1]["state"],
              Json::parse(R"({"items":["1 - ORDNO"],"selected":[],"listIndex":-1,
                              "enabled":true,"visible":true})"));
    EXPECT_EQ(replies[2]["ok"], false);
    EXPECT_EQ(replies[3]["state"]["caption"], "Save");
}

TEST_F(AutomationTest, LinesThatAreNoCommandsAndActionsThatNobodyCanDoAreRefused) {
    const char* const refused[] = {
        "no json",
        "[]",
        "{}",
        R"({"do":5})",
        R"({"do":"fly"})",
        R"({"do":"click"})",
        R"({"do":"click","control":"Nobody"})",
        R"({"do":"click","control":"ZEKOAddField"})",        // on another tab
        R"({"do":"click","control":"DataProvidersCombo"})",  // another kind
        R"({"do":"choose","control":"DataProvidersCombo","item":9})",
        R"({"do":"choose","control":"DataProvidersCombo","text":"Gone"})",
        R"({"do":"choose","control":"DataProvidersCombo","item":0,"text":"Orders"})",
        R"({"do":"select","control":"IncludeASPList"})",
        R"({"do":"select","control":"IncludeASPList","items":[],"texts":[]})",
        R"({"do":"dblclick","control":"IncludeASPList","text":"Gone"})",
        R"({"do":"save","force":1})",
        R"({"do":"select","control":"ZEKOSelectedFieldsList","texts":["1 - ORDNO"]})",
        R"({"do":"tab","index":6})",
        R"({"do":"click","control":"SpecifyCriteriumDialog.OKButton"})",  // not open
        R"({"do":"key","control":"IncludeASPText","key":"F1"})",
        R"({"do":"get","property":"Colour"})",
        R"({"do":"set","property":"ZEKOReturnFieldCount","value":1})",
        R"({"do":"set","property":"ZEKOReturnFields","index":7,"value":"x"})",
    };
    for (const char* line : refused) {
        const auto replies = converse({line, R"({"do":"properties"})"});
        ASSERT_EQ(replies.size(), 3U) << line;
        EXPECT_EQ(replies[1]["ok"], false) << line;
        EXPECT_NE(replies[1]["error"], "") << line;
        EXPECT_EQ(replies[1]["events"].size(), 0U) << line;
        EXPECT_EQ(replies[2]["ok"], true) << line;
    }
}

TEST_F(AutomationTest, PropertiesAreReadAndWrittenWithNotices) {
    const auto replies =
        converse({R"({"do":"get","property":"ZEKOReturnFields","index":0})",
                  R"({"do":"set","property":"ZEKOReturnFields","index":0,"value":"2 - CUSTNO"})",
                  R"({"do":"get","property":"ZEKOReturnFieldCount"})", R"({"do":"runtimeText"})",
                  R"({"do":"properties"})"});
    EXPECT_EQ(replies[1]["value"], "1 - ORDNO");
    EXPECT_EQ(replies[2]["events"], Json::parse(R"([{"changed":"ZEKOReturnFields"}])"));
    EXPECT_EQ(replies[3]["value"], 1);
    EXPECT_THAT(replies[4]["text"].get<std::string>(), HasSubstr("Add 2, \"CUSTNO\""));
    EXPECT_EQ(replies[5]["properties"][0],
              Json::parse(R"({"name":"ZEKOReturnFields0","type":"string","value":"2 - CUSTNO"})"));
}

TEST_F(AutomationTest, ADialogIsAnsweredWhenItStandsOpenAndAgainWhenItHasClosed) {
    const auto replies =
        converse({R"({"do":"tab","index":2})",
                  R"({"do":"cell","control":"ZEKOCriteriaGrid","row":1,"column":4})",
                  R"({"do":"click","control":"ZEKOAddCriteriumCommand"})",
                  R"({"do":"type","control":"SpecifyCriteriumDialog.NameText","text":"Lowest"})",
                  R"({"do":"click","control":"SpecifyCriteriumDialog.IncludedScriptOption"})",
                  R"({"do":"click","control":"SpecifyCriteriumDialog.OKButton"})",
                  R"({"do":"read","control":"ZEKOCriteriaGrid"})"});
    EXPECT_EQ(replies[2]["events"].back(), Json::parse(R"({"opened":"SpecifyCriteriumDialog"})"));
    EXPECT_EQ(replies[3]["ok"], false);
    EXPECT_THAT(replies[3]["error"].get<std::string>(), HasSubstr("modal dialog"));
    EXPECT_EQ(replies[6]["events"].front(), Json::parse(R"({"closed":"SpecifyCriteriumDialog"})"));
    EXPECT_EQ(replies[7]["state"]["cells"][1][3], "Lowest");
}

TEST_F(AutomationTest, EndingInsideADialogStoresNothing) {
    // The end of input does as well as "quit".
    for (const char* last : {R"({"do":"quit"})", R"({"do":"properties"})"}) {
        const auto before = site.read("page.asp");
        const auto replies =
            converse({R"({"do":"tab","index":2})",
                      R"({"do":"cell","control":"ZEKOCriteriaGrid","row":1,"column":4})", last});
        EXPECT_EQ(replies.back()["ok"], true);
        EXPECT_EQ(site.read("page.asp"), before);
    }
}

TEST_F(AutomationTest, SavesLikeGenerateWithTheSameGuards) {
    const auto replies = converse(
        {R"({"do":"save"})", R"({"do":"save"})",
         R"({"do":"choose","control":"DataProvidersCombo","text":"Stock"})", R"({"do":"save"})"});
    EXPECT_EQ(replies[1]["events"],
              Json::array({Json::object({{"wrote", (site / "page.asp").string()}})}));
    EXPECT_EQ(replies[2]["events"], Json::array());
    // Another provider is the author's own change and no loss.
    EXPECT_EQ(replies[4]["ok"], true);
    EXPECT_THAT(site.read("page.asp"), HasSubstr(TempSite::param("DataProvider", "Stock")));

    site.write("page.asp", TempSite::page(TempSite::param("DataProvider", "Gone")));
    const auto refused = converse({R"({"do":"save"})"});
    EXPECT_EQ(refused[1]["ok"], false);
    EXPECT_THAT(refused[1]["error"].get<std::string>(),
                HasSubstr("\"Gone\" is not in the catalogue"));
    EXPECT_EQ(site.read("page.asp"), TempSite::page(TempSite::param("DataProvider", "Gone")));
    // Until the author has dealt with it.
    const auto mended = converse(
        {R"({"do":"choose","control":"DataProvidersCombo","text":"Stock"})", R"({"do":"save"})"});
    EXPECT_EQ(mended[2]["ok"], true);
    EXPECT_THAT(site.read("page.asp"), HasSubstr(TempSite::param("DataProvider", "Stock")));
}

TEST_F(AutomationTest, ASaveEndsWhatIsBeingEditedAndIsRefusedBehindADialog) {
    const auto replies =
        converse({R"({"do":"tab","index":2})",
                  R"({"do":"dblcell","control":"ZEKOCriteriaGrid","row":1,"column":3})",
                  R"({"do":"type","control":"ZEKOKeyFieldValueText","text":"77"})",
                  R"({"do":"save"})", R"({"do":"read","control":"ZEKOKeyFieldValueText"})",
                  R"({"do":"cell","control":"ZEKOCriteriaGrid","row":1,"column":4})",
                  R"({"do":"save","force":true})", R"({"do":"controls"})"});
    EXPECT_EQ(replies[4]["events"].front(), Json::parse(R"({"changed":"ZEKOCriteria"})"));
    EXPECT_TRUE(replies[4]["events"].back().contains("wrote"));
    EXPECT_EQ(replies[5]["state"]["visible"], false);
    EXPECT_THAT(site.read("page.asp"), HasSubstr(TempSite::param("ZEKOCriteria1_3", "77")));
    EXPECT_THAT(replies[7]["error"].get<std::string>(), HasSubstr("SpecifyCriteriumDialog"));
    const Json& controls = replies[8]["controls"];
    EXPECT_THAT(controls,
                Contains(Json::parse(R"({"name":"ZEKOAddField","kind":"button","tab":2})")));
    EXPECT_THAT(controls, Contains(Json::parse(R"({"name":"SpecifyCriteriumDialog.NameText",
                              "kind":"text box","form":"SpecifyCriteriumDialog"})")));
}

TEST_F(AutomationTest, AForcedSaveIsOneThatLosesSomething) {
    site.write("page.asp", TempSite::page(TempSite::param("DataProvider", "Gone")));
    EXPECT_EQ(converse({R"({"do":"save","force":false})"})[1]["ok"], false);
    EXPECT_EQ(converse({R"({"do":"save","force":true})"})[1]["ok"], true);
}

TEST_F(AutomationTest, TextsNameItemsOneAfterTheOther) {
    const auto replies =
        converse({R"({"do":"type","control":"IncludeASPText","text":"a.asp"})",
                  R"({"do":"click","control":"IncludeASPAddCommand"})",
                  R"({"do":"type","control":"IncludeASPText","text":"b.asp"})",
                  R"({"do":"click","control":"IncludeASPAddCommand"})",
                  R"({"do":"select","control":"IncludeASPList","texts":["b.asp"]})",
                  R"({"do":"read","control":"IncludeASPList"})",
                  R"({"do":"select","control":"IncludeASPList","texts":["c.asp"]})",
                  R"({"do":"select","control":"IncludeASPList","texts":["a.asp"],"focus":"b.asp"})",
                  R"({"do":"dblclick","control":"IncludeASPList","text":"a.asp"})",
                  R"({"do":"read","control":"IncludeASPList"})"});
    EXPECT_EQ(replies[6]["state"]["selected"], Json::array({1}));
    EXPECT_THAT(replies[7]["error"].get<std::string>(), HasSubstr("c.asp"));
    EXPECT_EQ(replies[8]["ok"], false);
    EXPECT_EQ(replies[10]["state"]["listIndex"], 0);
}

TEST_F(AutomationTest, ScriptsKeepTheOrderInWhichTheyAreSet) {
    const auto replies =
        converse({R"({"do":"set","property":"UserDefinedScripts","value":{"z":"1","a":"2"}})",
                  R"({"do":"properties"})"});
    EXPECT_THAT(replies[2]["properties"].dump(),
                HasSubstr(R"({"name":"UserDefinedScript1","type":"string","value":"z"})"));
}

TEST_F(AutomationTest, APageThatCannotBeOpenedIsAnsweredOnce) {
    EXPECT_EQ(converse({R"({"do":"save"})"}, "Other").at(0)["ok"], false);
    EXPECT_FALSE(opened);
    std::filesystem::remove(site / "page.asp");
    const auto replies = converse({R"({"do":"save"})"});
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_THAT(replies[0]["error"].get<std::string>(), HasSubstr("page.asp"));
}

TEST_F(AutomationTest, FileDialogsAreAnsweredFromTheQueue) {
    const auto replies = converse({R"({"do":"pick","file":"c:\\suite\\Include\\Extra.asp"})",
                                   R"({"do":"click","control":"BrowseForIncludeASPCommand"})",
                                   R"({"do":"click","control":"IncludeASPAddCommand"})",
                                   R"({"do":"key","control":"UserControl","key":"x"})"});
    EXPECT_EQ(replies[2]["events"], Json::parse(R"([{"fileDialog":{
        "title":"Browse for include ASP","initialDirectory":"C:\\SUITE\\",
        "filter":"ASP files (*.asp)|*.asp"}}])"));
    EXPECT_EQ(replies[3]["events"], Json::parse(R"([{"changed":"ExtraIncludes"}])"));
    EXPECT_EQ(replies[4]["events"], Json::parse(R"([{"message":"keypress"}])"));
}

}  // namespace
}  // namespace headerdtc
