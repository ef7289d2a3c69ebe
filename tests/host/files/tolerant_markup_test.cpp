#include "host/page/page_markup.h"
#include "support/prologue.h"

namespace headerdtc::tolerant_markup_test {

const std::string Start =
    "<!--METADATA TYPE=\"DesignerControl\" startspan\r\n"
    "<OBJECT ID=\"H\" CLASSID=\"clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69\">\r\n";
const std::string Close = "</OBJECT>\r\n-->\r\n";
const std::string End = "<!--METADATA TYPE=\"DesignerControl\" endspan-->";
const std::string OtherStart =
    "<!--METADATA TYPE=\"DesignerControl\" startspan\r\n<OBJECT CLASSID=\"clsid:0\">-->";

PageMarkup greekPage(std::string bytes) {
    return {"page.asp", std::move(bytes), CodePage("windows-1253")};
}

StoredProperties propertiesOf(const std::string& params) {
    const auto page = greekPage(Start + params + Close + End);
    return page.controls().at(0).properties;
}

std::string problemOf(const std::string& bytes) {
    return errorOf<FileError>([&] { greekPage(bytes); });
}

TEST(TolerantMarkup, AnySpellingOfTheMarkupIsRead) {
    for (const char* start : {
             "<!--METADATA TYPE=\"DesignerControl\" startspan\r\n<OBJECT ID=\"H\" "
             "CLASSID=\"clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69\">",
             "<!--\n metadata startspan\ttype = designercontrol <object\nclassid = "
             "CLSID:2f9dab28-6bb4-469f-a568-9ca7a4217b69 codebase='a>b' id='H' declare\n>",
             "<!--MetaData x=\"1\" Type='DESIGNERCONTROL' StartSpan><!--METADATA "
             "TYPE=DesignerControl "
             "startspan<Object Id=H ClassId=\"{2F9DAB28-6BB4-469F-A568-9CA7A4217B69}\"/>",
         }) {
        for (const char* close :
             {"</OBJECT>\r\n-->\r\n", "</object\n>-->", "\n</Object> \t-->\n"}) {
            const auto page = greekPage(std::string(start) + "<Param\nValue=1\nName=A>" + close +
                                        "text<!-- Metadata "
                                        "endspan TYPE='designercontrol'\n-->after");
            ASSERT_EQ(page.controls().size(), 1U) << page.bytes();
            EXPECT_EQ(page.controls()[0].id, "H");
            EXPECT_THAT(page.controls()[0].properties, ElementsAre(Pair("A", "1")));
            EXPECT_EQ(page.runtimeTextOf(page.controls()[0]), "text");
            EXPECT_EQ(page.textOf({page.controls()[0].whole.end, page.bytes().size()}), "after");
        }
    }
}

TEST(TolerantMarkup, AnySpellingOfAPropertyIsRead) {
    EXPECT_THAT(
        propertiesOf("<PARAM NAME=\"a\" VALUE='1 \"2\"'><param name='b' value=\"it's > <x\">"
                     "</param>\n<PARAM\tVALUETYPE=DATA NAME=c VALUE=a/b.xsl/>"
                     "<PARAM NAME=\"d\" VALUE = \"\" /><PARAM NAME=e><PARAM NAME=f VALUE=>"
                     "<PARAM NAME=A VALUE=x NAME=ignored>"),
        ElementsAre(Pair("a", "1 \"2\""), Pair("b", "it's > <x"), Pair("c", "a/b.xsl/"),
                    Pair("d", ""), Pair("e", ""), Pair("f", ""), Pair("A", "x")));
}

TEST(TolerantMarkup, ReferencesAreDecodedAndWhatIsNoneStays) {
    const std::pair<std::string, std::string> cases[] = {
        {"&amp;amp;&lt;&gt;&quot;&apos;", "&amp;<>\"'"},
        {"&#45;&#0045;&#x2d;&#X2D;&#x1F600;&#937;", "----😀Ω"},
        {"&#0;&#1114111;", std::string(1, '\0') + "\xF4\x8F\xBF\xBF"},
        {"&#1114112;&#xD800;&#99999999999999999999;", "&#1114112;&#xD800;&#99999999999999999999;"},
        {"&nbsp;&AMP;&;&#;&#x;&#12a;&#xg;&# 45;&amp", "&nbsp;&AMP;&;&#;&#x;&#12a;&#xg;&# 45;&amp"},
        {"&&amp;&lt", "&&&lt"},
        {"\xD9 a-->b", "Ω a-->b"},
    };
    for (const auto& [stored, text] : cases)
        EXPECT_EQ(propertiesOf("<PARAM NAME=a VALUE=\"" + stored + "\">").at(0).second, text);
}

TEST(TolerantMarkup, DamageIsReportedWithItsLineAndColumn) {
    for (auto [bytes, problem] : casesOf("host/cases/tolerant_markup.txt")) {
        for (const auto& [name, piece] : {std::pair{"{start}", Start},
                                          {"{close}", Close},
                                          {"{end}", End},
                                          {"{other}", OtherStart},
                                          {"{open}", Start.substr(0, Start.size() - 3)},
                                          {"{id}", Start.substr(Start.find("CLASSID"))}})
            bytes = replaceAll(bytes, name, piece);
        EXPECT_THAT(problemOf(bytes), HasSubstr(problem)) << bytes;
    }
}

TEST(TolerantMarkup, WhatOnlyLooksLikeAControlIsText) {
    for (const auto& bytes : {
             End,
             std::string("<!--METADATA TYPE=\"TypeLib\" startspan-->"),
             std::string("<!--METADATA TYPE=\"DesignerControl\" startspan\">"),
             std::string("<!--METADATAS TYPE=\"DesignerControl\" startspan"),
             std::string("<!--METADATA TYPE=\"DesignerControl\" x='-->' startspan-->"),
             std::string("<!--METADATA TYPE=\"DesignerControl"),
             std::string("<!--METADATA TYPE=\"DesignerControl\""),
             std::string("<!--"),
             std::string("<%\0\0%>\0", 7),
             std::string("\xFF\xFF"),
             OtherStart + OtherStart + "<OBJECT CLASSID=\"clsid:2F9DAB28" + End + "x" + End,
             "<!--METADATA TYPE=DesignerControl startspan-->" + End,
         }) {
        const auto page = greekPage(bytes);
        EXPECT_TRUE(page.controls().empty()) << bytes;
        EXPECT_EQ(page.with({}), bytes);
    }
    // A start that nothing follows is text inside of ours.
    const auto text = "s = \"<!--METADATA TYPE=DesignerControl startspan\"";
    const auto page = greekPage(Start + Close + text + End);
    EXPECT_EQ(page.runtimeTextOf(page.controls().at(0)), text);
}

}  // namespace headerdtc::tolerant_markup_test
