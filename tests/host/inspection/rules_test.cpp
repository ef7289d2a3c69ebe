#include "host/inspection/harbour_site.h"
#include "host/inspection/property_line.h"

namespace headerdtc::rules_test {

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

class Rules : public Test {
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

TEST_F(Rules, SayWhatIsWrongAfterAChangeOfTheWholePage) {
    for (auto [changes, said] : casesOf("host/cases/rules.txt")) {
        SCOPED_TRACE(changes);
        const auto all = found(HarbourSite::with(changes));
        const bool isAmongOthers = said.starts_with("...");
        if (isAmongOthers) said.erase(0, 3);
        EXPECT_EQ(all.size() > 1, isAmongOthers) << PrintToString(all);
        EXPECT_EQ(all.empty(), said.empty()) << PrintToString(all);
        EXPECT_TRUE(said.empty() || Value(all, Contains(HasSubstr(said)))) << PrintToString(all);
    }
}

TEST_F(Rules, LookIntoThePageAndBelowItsRoot) {
    site.writePage("own.asp", HarbourSite::with("included=LowWater"),
                   "<% Function LowWater() %>\n");
    site.generate("own.asp");
    EXPECT_THAT(shown(site.inspect("own.asp")), IsEmpty());
    // From where the published page takes it.
    site.write("xsl/Wide.xsl", "");
    EXPECT_THAT(found(HarbourSite::with("XSLFilename=xsl/Wide.xsl")), IsEmpty());
}

// What two controls of a page bring comes into one script.
TEST_F(Rules, LookAtAllControlsOfAPageTogether) {
    const auto scripted = HarbourSite::with("script=Function Pilot()&#10;End Function");
    site.write("page.asp", site.page(HarbourSite::params(scripted)) +
                               replaceAll(site.page(HarbourSite::params(scripted)), "HeaderDTC1",
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

TEST_F(Rules, CountTheLinesOfAStatement) {
    const auto translating = [](int fields) {
        const std::string count = std::to_string(fields);
        std::string changes = "ZEKOReturnFieldCount=" + count + "|NrOfZEKOI18NFieldnames=" + count;
        for (int i = 0; i < fields; ++i) {
            for (const char* list : {"|ZEKOReturnFields", "|ZEKOI18NFieldnames"})
                changes += list + std::to_string(i) + "=1 - IMO";
        }
        return HarbourSite::with(changes);
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

    site.writePage("page.asp", HarbourSite::with("ZEKOReturnFieldCount=many"));
    // That it is left alone is told where nothing else is the cause.
    EXPECT_THAT(shown(site.inspect("page.asp")),
                AllOf(Contains(HasSubstr("unreadable-property ZEKOReturnFieldCount: ")),
                      Not(Contains(HasSubstr("not-generated: ")))));
    site.writePage("page.asp", HarbourSite::ships());
    const std::string configuration = site.read("headerdtc.toml");
    site.write("headerdtc.toml", configuration + "[project]\nroot = \"web\"\n");
    EXPECT_THAT(shown(site.inspect("page.asp")), Contains(HasSubstr("not-generated: ")));
    // What every page of the site lacks is not said of each control.
    site.write("headerdtc.toml", configuration);
    std::filesystem::remove(site / "c/Suite/Orvane/include/DTC_TEMPLATE.ASP");
    const auto lacking = site.inspect("page.asp");
    EXPECT_THAT(shown(lacking), IsEmpty());
    EXPECT_THAT(lacking.failure->text, HasSubstr("DTC_TEMPLATE.ASP: the template cannot be read"));

    EXPECT_THAT(found(HarbourSite::with("NrOfLinkedZEKOFields=0")),
                Contains(HasSubstr("unreadable-property NrOfLinkedZEKOFields: ")));
}

TEST_F(Rules, NameTheLineOfThePropertyAndTheControlsOfAPage) {
    const std::string markup =
        HarbourSite::params(HarbourSite::with("XSLFilename=ZEKOKeyFieldnames0"));
    site.write("page.asp", HarbourSite::control(markup) + "\n" + HarbourSite::control(markup));
    site.generate("page.asp");
    const auto page = site.inspect("page.asp");
    ASSERT_THAT(shown(page),
                ElementsAre(HasSubstr("missing-stylesheet"),
                            HasSubstr("duplicate-id: the control of line 1"),
                            HasSubstr("repeated-include"), HasSubstr("missing-stylesheet")));

    const std::string directive = "<%@ LANGUAGE=VBScript %>\n";
    const std::string sound = HarbourSite::params(HarbourSite::ships());
    site.write("page.asp", "\n" + HarbourSite::control(sound) + "\n" + directive);
    site.generate("page.asp");
    const auto misplaced = site.inspect("page.asp");
    EXPECT_EQ(misplaced.findings.at(0).line, 2);
    EXPECT_THAT(shown(misplaced),
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

}  // namespace headerdtc::rules_test
