#include "host/inspection/harbour_site.h"
#include "host/inspection/property_line.h"
#include "platform/text.h"

#include <gmock/gmock.h>
#include <sstream>

namespace headerdtc {
namespace {

using namespace ::testing;
using testing::HarbourSite;

// "rule family row property: text", for those that a test is about.
std::string shown(const Finding& finding) {
    std::string text(finding.rule);
    if (finding.remark.family) text += " " + std::string(traitsOf(*finding.remark.family).prefix);
    if (finding.remark.row > 0) text += " " + std::to_string(finding.remark.row);
    if (!finding.remark.property.empty()) text += " " + finding.remark.property;
    return text + ": " + finding.remark.text + "; " + finding.remark.advice;
}

std::vector<std::string> shown(const InspectedPage& page) {
    std::vector<std::string> all;
    for (const Finding& finding : page.findings) {
        EXPECT_FALSE(finding.remark.advice.empty()) << finding.rule;
        all.push_back(shown(finding));
    }
    return all;
}

class Rules : public ::testing::Test {
  protected:
    // What is found on a page with these properties, generated as far as it can be; findings that
    // only follow from others are left out.
    std::vector<std::string> found(const HarbourSite::Params& params) {
        site.writePage("page.asp", params);
        site.generate("page.asp");
        auto all = shown(site.inspect("page.asp"));
        std::erase_if(all,
                      [](const std::string& text) { return text.starts_with("not-generated"); });
        return all;
    }

    HarbourSite site;
};

TEST_F(Rules, FindNothingOnAWholePage) {
    EXPECT_THAT(found(HarbourSite::ships()), IsEmpty());
}

// Each case changes properties of the whole page; what is said then, alone or with what follows.
TEST_F(Rules, CompareEachPropertyWithWhatItIsAbout) {
    struct Case {
        std::string changes;
        const char* said;
        bool isAlone = true;
    };
    const Case cases[] = {
        {"DataProvider=ships", "unknown-provider DataProvider: the data provider \"ships\""},
        {"LinkedDataProvider=Quays", "unknown-linked-provider LinkedDataProvider: "},
        {"ZEKOReturnFields1=2 - BERTH", "unknown-field ZEKO 2 ZEKOReturnFields1: "},
        {"ZEKOReturnFields1=3 - FLAGG", "is \"3 - BERTH\" meant?"},  // a field that was renamed
        {"ZEKOReturnFields1=9 - FLAGG", "is \"2 - FLAG\" meant?"},
        {"ZEKOReturnFields1=2 - BERTH", "the field is \"3 - BERTH\" there"},
        {"EAIReturnFields0=BOAT.IMO", "unknown-field EAI 1 EAIReturnFields0: "},
        {"ZEKOCriteria1_1=FLAG",
         "unknown-key-field ZEKO 1 ZEKOCriteria1_1: key of criterion "
         "\"FLAG\" is no key field of \"Ships\""},
        {"ZEKOKeyFieldnames1=PORT", "unknown-key-field ZEKO 2 ZEKOKeyFieldnames1: "},
        // A family that the catalogue does not describe is said once, not for each of its fields.
        {"DataProvider=Berths;EAIReturnFieldCount=2;EAIReturnFields1=SHIP.FLAG",
         "\"Berths\" offers nothing to EAI, but 2 return fields", false},
        // Separators where the generation needs them: an EAI return field is written whole.
        {"ZEKOReturnFields0=IMO", "field-separator ZEKO 1 ZEKOReturnFields0: ", false},
        {"ZEKOLinkFromFields1=BERTH", "field-separator ZEKO 1 ZEKOLinkFromFields1: ", false},
        {"EAIReturnFields0=IMO", "unknown-field EAI 1"},
        {"ZEKOLinkToFields1=IMO", "unknown-linked-field ZEKO 1 ZEKOLinkToFields1: "},
        {"ZEKOSelectedLinkedFields0=2 - TIDE",
         "unknown-linked-field ZEKO 1 ZEKOSelectedLinkedFields0: "},
        {"ZEKOLinkToFields1=", "incomplete-link ZEKO 1 ZEKOLinkToFields1: link 1 has only"},
        {"LinkedDataProvider=ZEKOLinkedDataProvidersCombo",
         "fields are linked, but no linked data provider is chosen"},
        {"ZEKOLinkFromFields1=;ZEKOLinkToFields1=",
         "linked fields are chosen, but no fields are linked"},
        {"ZEKOCriteria1_3=", "incomplete-criterion ZEKO 1 ZEKOCriteria1_1: "},
        // What is left out is told of once, whatever else is wrong with it.
        {"ZEKOCriteria1_1=NONE;ZEKOCriteria1_2=", "incomplete-criterion ZEKO 1"},
        // A dictionary takes a key once: ZEKO's are the numbers.
        {"ZEKOReturnFields1=1 - IMO", "repeated-field ZEKO 2 ZEKOReturnFields1: "},
        {"EAIReturnFieldCount=2;EAIReturnFields1=SHIP.IMO", "repeated-field EAI 2"},
        {"NrOfSelectedZEKOLinkedFields=2;ZEKOSelectedLinkedFields1=2 - DEPTH",
         "repeated-field ZEKO 2 ZEKOSelectedLinkedFields1: linked field \"2 - DEPTH\" is there "
         "twice (row 1)"},
        {"NrOfLinkedZEKOFields=3;ZEKOLinkFromFields2=3 - BERTH;ZEKOLinkToFields2=BERTH",
         "repeated-field ZEKO 2 ZEKOLinkFromFields2: "},
        {"XSLFilename=<XSL_FILENAME>", "value-is-placeholder XSLFilename: ", false},
        {"NrOfExtraIncludes=2;ExtraIncludes1=include\\Tides.asp",
         "repeated-include 2 ExtraIncludes1: the include file \"include\\Tides.asp\" comes twice"},
        {"ZEKOCriteria1_2=<>",
         "unknown-operator ZEKO 1 ZEKOCriteria1_2: the operator \"<>\" of criterion 1"},
        {"EAICriteria1_1=IMO;EAICriteria1_2===;EAICriteria1_3=HighWater",
         "value-type-conflict EAI 1 EAICriteria1_3: the value \"HighWater\" is a constant for EAI "
         "and a function"},
        {"ZEKOCriteriaCount=3;ZEKOCriteriaType2=HighWater",
         "value-type-conflict ZEKO ZEKOCriteriaType2: "},
        {"ZEKOCriteriaType1=;ZEKOCriteriaType2=HighWater",
         "unread-value-type ZEKO 1 ZEKOCriteriaType2: the value \"HighWater\" of criterion 1 is "
         "stored as a function"},
    };
    for (const auto& [changes, said, isAlone] : cases) {
        SCOPED_TRACE(changes);
        HarbourSite::Params params;
        std::istringstream stream(changes);
        for (std::string change; std::getline(stream, change, ';');) {
            const auto equals = change.find('=');
            params.emplace_back(change.substr(0, equals), change.substr(equals + 1));
        }
        const auto all = found(HarbourSite::with(params));
        EXPECT_THAT(all, Contains(HasSubstr(said)));
        EXPECT_EQ(all.size() == 1, isAlone) << ::testing::PrintToString(all);
    }
}

TEST_F(Rules, LookForFunctionsWhereverAPageGetsThemFrom) {
    const auto calling = [](const std::string& function, const std::string& type) {
        return HarbourSite::with({{"ZEKOCriteria1_3", function},
                                  {"ZEKOCriteriaType1", function},
                                  {function + "ZEKOCriteriaType", type},
                                  {"HighWaterZEKOCriteriaType", "0"}});
    };
    EXPECT_THAT(found(calling("LowWater", "1")),
                ElementsAre(HasSubstr("undefined-function ZEKO 1 ZEKOCriteria1_3: no include file "
                                      "and no script defines the function \"LowWater\"")));
    EXPECT_THAT(found(calling("watch", "1")), IsEmpty());  // in a file that an include includes
    EXPECT_THAT(found(calling("Now", "1")), IsEmpty());
    EXPECT_THAT(found(calling("Session.SessionID", "1")), IsEmpty());  // cannot be known
    EXPECT_THAT(found(calling("two words", "1")), ElementsAre(HasSubstr("cannot be the name")));

    site.writePage("own.asp", calling("LowWater", "1"), "<% Function LowWater() %>\n");
    site.generate("own.asp");
    EXPECT_THAT(shown(site.inspect("own.asp")), IsEmpty());

    // A local script has to be stored, and to define what is called.
    EXPECT_THAT(found(calling("Pilot", "2")), Contains(HasSubstr("\"Pilot\" is not stored")));
    const auto scripted = [&](const std::string& text) {
        auto params = calling("Pilot", "2");
        params.emplace_back("NrOfUserDefinedScripts", "1");
        params.emplace_back("UserDefinedScript1", "Pilot");
        params.emplace_back("PilotUserDefinedScript", text);
        return params;
    };
    EXPECT_THAT(found(scripted("Function Pilot()&#13;&#10;End Function 'Pilot()")), IsEmpty());
    const std::pair<const char*, const char*> bodies[] = {
        {"Function Tug()&#10;End Function", "does not define a function of that name"},
        {"Function Pilot()",
         "broken-script 1 UserDefinedScript1: the local script \"Pilot\" does "
         "not end \"Pilot\""},
        {"Function Pilot()&#10;'%&gt;&#10;End Function", "has a %>, which ends the server script"},
        {"Function Pilot()&#10;'&#0;&#10;End Function", "nul-character 1 UserDefinedScript1: "},
        {"Function Pilot()&#10;End Function&#10;Dim pilot", "defines \"pilot\", as it did"},
    };
    for (const auto& [body, said] : bodies)
        EXPECT_THAT(found(scripted(body)), ElementsAre(HasSubstr(said)));

    for (const char* name : {"Select", "mReturnFields", "Not"})
        EXPECT_THAT(found(calling(name, "1")), Contains(HasSubstr("name-not-allowed ZEKO 1")))
            << name;
}

// What two controls of a page bring comes into one script.
TEST_F(Rules, LookAtAllControlsOfAPageTogether) {
    const auto scripted =
        HarbourSite::with({{"NrOfUserDefinedScripts", "1"},
                           {"UserDefinedScript1", "Pilot"},
                           {"PilotUserDefinedScript", "Function Pilot()&#10;End Function"}});
    site.write("page.asp", site.page(HarbourSite::markup(scripted)) +
                               replaceAll(site.page(HarbourSite::markup(scripted)), "HeaderDTC1",
                                          "HeaderDTC2"));
    site.generate("page.asp");
    EXPECT_THAT(
        shown(site.inspect("page.asp")),
        UnorderedElementsAre(HasSubstr("repeated-include 1 ExtraIncludes0: the include file "
                                       "\"Include/Tides.asp\" comes twice, from HeaderDTC1"),
                             HasSubstr("name-defined-twice 1 UserDefinedScript1: ")));
}

TEST_F(Rules, LookIntoIncludeFiles) {
    site.write("c/Suite/Include/Clock.asp",
               "<!--#include file=\"gone.asp\"--><!--#include file=\"tides.asp\"-->\n<% x = 1");
    EXPECT_THAT(found(HarbourSite::ships()),
                ElementsAre(HasSubstr("Clock.asp has a <% without a %>"),
                            HasSubstr("Clock.asp includes \"gone.asp\", which is not there"),
                            HasSubstr("Clock.asp includes \"tides.asp\", by which it includes")));
}

TEST_F(Rules, LookForFilesWithoutRegardToCase) {
    EXPECT_THAT(found(HarbourSite::with({{"ExtraIncludes0", "INCLUDE\\tides.ASP"}})), IsEmpty());
    EXPECT_THAT(found(HarbourSite::with(
                    {{"NrOfExtraIncludes", "2"}, {"ExtraIncludes1", "Include/Locks.asp"}})),
                ElementsAre(HasSubstr("missing-include 2 ExtraIncludes1: ")));
    EXPECT_THAT(found(HarbourSite::with({{"XSLFilename", "xsl/Wide.xsl"}})),
                ElementsAre(HasSubstr("missing-stylesheet XSLFilename: ")));
    // Below the project's root, from where the published page takes it.
    site.write("xsl/Wide.xsl", "");
    EXPECT_THAT(found(HarbourSite::with({{"XSLFilename", "xsl/Wide.xsl"}})), IsEmpty());
}

TEST_F(Rules, FindValuesThatEndTheTextTheyArePutInto) {
    const auto valued = [](const std::string& value) {
        return HarbourSite::with({{"ZEKOCriteria1_3", value}, {"ZEKOCriteriaType1", ""}});
    };
    EXPECT_THAT(found(valued("quay &quot;A&quot;")),
                ElementsAre(HasSubstr("value-breaks-script ZEKO 1 ZEKOCriteria1_3: value of "
                                      "criterion 1, \"quay \"A\"\", has a quotation mark")));
    EXPECT_THAT(found(valued("quay &quot;&quot;A&quot;&quot;")), IsEmpty());
    EXPECT_THAT(found(valued("100%>")), ElementsAre(HasSubstr("has a %>")));
    EXPECT_THAT(found(valued("two&#10;lines")), ElementsAre(HasSubstr("has a line end")));
    EXPECT_THAT(found(valued("100 &#8364;")), IsEmpty());
    EXPECT_THAT(found(valued("&#937;")),
                ElementsAre(HasSubstr("outside-code-page ZEKO 1 ZEKOCriteria1_3: value of "
                                      "criterion \"Ω\" has Ω (U+03A9), which windows-1252 lacks")));
}

TEST_F(Rules, CountTheLinesOfAStatement) {
    const auto translating = [](int fields) {
        auto params = HarbourSite::with({{"ZEKOReturnFieldCount", std::to_string(fields)},
                                         {"NrOfZEKOI18NFieldnames", std::to_string(fields)}});
        for (int i = 0; i < fields; ++i) {
            for (const char* list : {"ZEKOReturnFields", "ZEKOI18NFieldnames"}) {
                const std::string name = list + std::to_string(i);
                std::erase_if(params, [&](const auto& param) { return param.first == name; });
                params.emplace_back(name, "1 - IMO");
            }
        }
        return params;
    };
    const auto tooLong = Contains(HasSubstr("long-statement"));
    EXPECT_THAT(found(translating(23)), Not(tooLong));
    EXPECT_THAT(found(translating(24)), tooLong);
}

TEST_F(Rules, SayWhatOfAPageIsStaleAndWhatWouldNotBeWritten) {
    site.writePage("page.asp", HarbourSite::ships(), "<html>\n");
    auto stale = site.inspect("page.asp");
    ASSERT_THAT(shown(stale),
                ElementsAre(HasSubstr("stale: the text is not what would be generated")));
    EXPECT_EQ(stale.findings[0].control, "HeaderDTC1");

    site.generate("page.asp");
    std::string changed = site.read("page.asp");
    changed.replace(changed.find("' Ships Berths"), 7, "' Boats");
    site.write("page.asp", changed);
    stale = site.inspect("page.asp");
    const auto before = changed.substr(0, changed.find("' Boats"));
    EXPECT_EQ(stale.findings.at(0).line, std::count(before.begin(), before.end(), '\n') + 1);

    site.writePage("page.asp", HarbourSite::with({{"ZEKOReturnFieldCount", "many"}}));
    // That it is left alone is told where nothing else is the cause.
    EXPECT_THAT(shown(site.inspect("page.asp")),
                AllOf(Contains(HasSubstr("unreadable-property ZEKOReturnFieldCount: ")),
                      Not(Contains(HasSubstr("not-generated: ")))));
    std::filesystem::remove(site / "c/Suite/Orvane/include/DTC_TEMPLATE.ASP");
    site.writePage("page.asp", HarbourSite::ships());
    EXPECT_THAT(shown(site.inspect("page.asp")), Contains(HasSubstr("not-generated: ")));

    EXPECT_THAT(found(HarbourSite::with({{"NrOfLinkedZEKOFields", "0"}})),
                Contains(HasSubstr("unreadable-property NrOfLinkedZEKOFields: ")));
}

TEST_F(Rules, NameTheLineOfThePropertyAndTheControlsOfAPage) {
    const std::string markup =
        HarbourSite::markup(HarbourSite::with({{"XSLFilename", "ZEKOKeyFieldnames0"}}));
    site.write("page.asp", HarbourSite::control(markup) + "\n" + HarbourSite::control(markup));
    site.generate("page.asp");
    const auto page = site.inspect("page.asp");
    ASSERT_THAT(shown(page),
                ElementsAre(HasSubstr("missing-stylesheet"),
                            HasSubstr("duplicate-id: the control of line 1"),
                            HasSubstr("repeated-include"), HasSubstr("missing-stylesheet")));

    const std::string directive = "<%@ LANGUAGE=VBScript %>\n";
    const std::string sound = HarbourSite::markup(HarbourSite::ships());
    site.write("page.asp", HarbourSite::control(sound) + "\n" + directive);
    site.generate("page.asp");
    EXPECT_THAT(shown(site.inspect("page.asp")),
                ElementsAre(HasSubstr("control-before-directive: the control stands before the "
                                      "page's directive (<%@ ... %>, line ")));
    site.write("page.asp", directive + HarbourSite::control(sound));
    site.generate("page.asp");
    EXPECT_THAT(shown(site.inspect("page.asp")), IsEmpty());
}

TEST(PropertyLine, IsThatOfTheNameHoweverItIsWritten) {
    const std::string bytes = HarbourSite::control(
        "<PARAM NAME=a VALUE=\"XSLFilename\">\n<param value=\"\n\" Name =\n 'XSLFilename'>\n"
        "<PARAM NAME=XSLFilename2 VALUE=x>");
    const PageMarkup page("page.asp", bytes, CodePage("windows-1252"));
    const ControlSpan& control = page.controls().at(0);
    EXPECT_EQ(lineOfProperty(page, control, "a"), 3);
    EXPECT_EQ(lineOfProperty(page, control, "XSLFilename"), 6);
    EXPECT_EQ(lineOfProperty(page, control, "XSLFilename2"), 7);
    EXPECT_EQ(lineOfProperty(page, control, "NotThere"), 1);
}

TEST_F(Rules, APageThatCannotBeCheckedSaysWhy) {
    site.write("page.asp", "<!--METADATA TYPE=\"DesignerControl\" startspan\n<OBJECT>");
    EXPECT_EQ(site.inspect("page.asp").failure->of, PageFailure::Of::Page);
    EXPECT_EQ(site.inspect("missing.asp").failure->of, PageFailure::Of::Page);

    site.writePage("page.asp", HarbourSite::ships());
    site.write("catalogue.json", "{");
    EXPECT_EQ(site.inspect("page.asp").failure->of, PageFailure::Of::Site);
    EXPECT_THAT(site.inspect("page.asp").failure->text, HasSubstr("catalogue.json:1:"));
    site.write("headerdtc.toml", "colour = 1\n");
    EXPECT_EQ(site.inspect("page.asp").failure->of, PageFailure::Of::Configuration);
}

}  // namespace
}  // namespace headerdtc
