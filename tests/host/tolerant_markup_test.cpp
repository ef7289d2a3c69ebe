#include "host/failures.h"
#include "host/page/page_markup.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;
using testing::errorOf;

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
    const std::pair<std::string, std::string> cases[] = {
        {"\n\n" + Start + Close + "text",
         "page.asp:3:1: the designer control that starts here has no end"},
        {"x " + OtherStart, "page.asp:1:3: the designer control that starts here has no end"},
        {"\n" + Start + Close + Start + Close + End,
         "page.asp:2:1: the designer control that starts here has no end before the next one, "
         "which "
         "starts on line 6"},
        {Start + Close + OtherStart + End, "page.asp:1:1: the designer control that starts here"},
        {OtherStart + "\n" + Start + Close + End, "page.asp:1:1: the designer control that starts"},
        {Start + "<PARAM NAME=a>\r\n-->\r\n" + End, "page.asp:2:1: the OBJECT is not closed"},
        {Start + "<PARAM NAME=a>", "page.asp:2:1: the OBJECT is not closed"},
        {Start.substr(0, Start.size() - 3) + "\r\n<PARAM NAME=a>" + Close + End,
         "page.asp:2:1: the OBJECT tag is not closed"},
        {"<!--METADATA TYPE=DesignerControl startspan\n <OBJECT CLASSID=\"clsid:2f9dab28-6bb4-469f-"
         "a568-9ca7a4217b69>\n<PARAM NAME=\"a\">\n-->" +
             End,
         "page.asp:2:2: the OBJECT tag is not closed"},
        {Start + "<PARAM NAME=\"a\">\r\n<PARAM NAME=b>\n  <PARAM NAME='a' VALUE=2>" + Close + End,
         "page.asp:5:3: the property \"a\" is there twice, here and on line 3"},
        {Start + "<PARAM VALUE=2>" + Close + End, "page.asp:3:1: this PARAM has no NAME"},
        {Start + "<PARAM NAME=\"a\" VALUE=\"b>\r\n<PARAM NAME=\"c\">" + Close + End,
         "page.asp:3:1: this PARAM is broken"},
        {Start + "<PARAM NAME=\"a\" VALUE=b\"c>" + Close + End,
         "page.asp:3:1: this PARAM is broken"},
        {Start + "<EMBED SRC=x>" + Close + End, "page.asp:3:1: nothing but PARAM can stand"},
        {Start + "</OBJECT> text -->" + End, "page.asp:3:11: the comment that holds the OBJECT"},
        // A quotation mark that is not closed: it ends at the next control, or in script.
        {"\n<!--METADATA TYPE=DesignerControl startspan\n<OBJECT ID='x CLASSID=clsid:0>\n" + Close +
             End + "\n<!--METADATA TYPE=DesignerControl startspan <OBJECT ID='H' " +
             Start.substr(Start.find("CLASSID")) + Close + End,
         "page.asp:3:1: the OBJECT tag is damaged and reaches into the designer control that "
         "starts "
         "on line 7; close"},
        {"\n<!--METADATA TYPE=DesignerControl startspan\n<OBJECT ID='x " +
             Start.substr(Start.find("CLASSID")) + Close + "<% ' old %>" + End,
         "page.asp:3:1: the OBJECT tag is not closed"},
        {Start + "<PARAM NAME=a VALUE='b>\r\n" + Close + End + Start + Close + "<% ' old %>" + End,
         "page.asp:3:1: this PARAM is damaged and reaches into the designer control that starts on "
         "line 6"},
        {std::string("\xFF\xFE<\0%\0", 6), "page.asp:1:1: the page is in UTF-16"},
        {std::string("\xFE\xFF\0<", 4), "page.asp:1:1: the page is in UTF-16"},
        {std::string("<\0%\0@\0\xA9\x03\r\0\n\0", 12), "page.asp:1:1: the page is in UTF-16"},
        {std::string("\0<\0%\0@\x03\xA9\0\r\0\n", 12), "page.asp:1:1: the page is in UTF-16"},
    };
    for (const auto& [bytes, problem] : cases)
        EXPECT_THAT(problemOf(bytes), HasSubstr(problem)) << bytes;
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

// Each of these would take minutes if a broken piece were read to the end of the page again and
// again.
TEST(TolerantMarkup, TheTimeIsInProportionToThePage) {
    const auto repeated = [](const std::string& piece) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        return text;
    };
    for (const char* piece : {
             "<!--METADATA ",
             "<!--METADATA TYPE=\"",
             "<!--METADATA TYPE='DesignerControl' x=\"",
             "<!--METADATA TYPE=DesignerControl startspan <OBJECT ",
             "<!--METADATA TYPE=DesignerControl startspan <OBJECT A=x\" B=\"",
             "<!--METADATA TYPE=DesignerControl startspan <OBJECT A=\" c=\" B='",
             "<!--METADATA TYPE=DesignerControl startspan <OBJECT A=\"<PARAM",
             "&#",
             "<",
         }) {
        const auto text = repeated(piece);
        const auto page = greekPage(text + "\n" + End + Start + Close + text + "\n" + End);
        ASSERT_EQ(page.controls().size(), 1U) << piece;
        EXPECT_EQ(page.controls()[0].runtimeText.size(), text.size() + 1) << piece;
    }
    const auto value = repeated("&&#1&amp;--");
    EXPECT_GT(propertiesOf("<PARAM NAME=a VALUE=\"" + value + "\">").at(0).second.size(),
              value.size() / 2);
}

}  // namespace
}  // namespace headerdtc
