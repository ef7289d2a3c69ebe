#include "host/page/page_markup.h"

#include "host/failures.h"

#include <gmock/gmock.h>
#include <random>

namespace headerdtc {
namespace {

using namespace ::testing;
using testing::errorOf;

const std::string EndComment = "<!--METADATA TYPE=\"DesignerControl\" endspan-->";
const std::string OtherControl =
    "<!--METADATA TYPE=\"DesignerControl\" startspan\n<OBJECT ID=\"HeaderDTC2\" "
    "CLASSID=\"clsid:00000000-1111-2222-3333-444444444444\">\n\t<param name=broken value=\"a>\n"
    "</OBJECT --\n-->\r\n<% x = 1 %>" +
    EndComment;

PageMarkup pageOf(std::string bytes, const std::string& codePage = "windows-1252") {
    return {"page.asp", std::move(bytes), CodePage(codePage)};
}

ControlContent contentOf(const ControlSpan& control, std::string runtimeText) {
    return {control.id, control.properties, std::move(runtimeText)};
}

std::string written(const ControlContent& content, const std::string& codePage = "windows-1252") {
    return writeControl("page.asp", content, CodePage(codePage));
}

TEST(PageMarkup, IsWrittenToTheByte) {
    EXPECT_EQ(
        written({"HeaderDTC1",
                 {{"EnableExtraFilters", "-1"}, {"ZEKOReturnFields0", "1 - CUSTNO"}},
                 "<% Option Explicit %>\r\n"}),
        "<!--METADATA TYPE=\"DesignerControl\" startspan\r\n"
        "<OBJECT ID=\"HeaderDTC1\" CLASSID=\"clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69\">\r\n"
        "\t<PARAM NAME=\"EnableExtraFilters\" VALUE=\"-1\">\r\n"
        "\t<PARAM NAME=\"ZEKOReturnFields0\" VALUE=\"1 - CUSTNO\">\r\n"
        "</OBJECT>\r\n"
        "-->\r\n"
        "<% Option Explicit %>\r\n"
        "<!--METADATA TYPE=\"DesignerControl\" endspan-->");
}

TEST(PageMarkup, NoValueCanBreakIt) {
    const auto text = written({"H", {{"a<b", "%>&amp;\"\r\n\t'"}, {"h", "-- --- ---- -"}}, ""});
    EXPECT_THAT(text, HasSubstr("NAME=\"a&lt;b\" VALUE=\"%&gt;&amp;amp;&quot;&#13;&#10;&#9;'\""));
    EXPECT_THAT(text, HasSubstr("VALUE=\"-&#45; -&#45;- -&#45;-&#45; -\""));
    EXPECT_THAT(written({"H", {{"n", "é€Ω😀"}}, "é€Ω😀"}),
                HasSubstr("VALUE=\"\xE9\x80&#937;&#128512;\">\r\n</OBJECT>\r\n-->\r\n"
                          "\xE9\x80&#937;&#128512;<!--"));
}

TEST(PageMarkup, FindsOurControlsAmongOthers) {
    const auto first = written({"HeaderDTC1", {{"A", "1"}}, "one\r\n"});
    const auto second = written({"HeaderDTC7", {}, ""});
    const auto page = pageOf("<html>\r\n" + first + "\n" + OtherControl + second + EndComment);
    ASSERT_EQ(page.controls().size(), 2U);
    EXPECT_EQ(page.controls()[0].id, "HeaderDTC1");
    EXPECT_EQ(page.controls()[0].line, 2);
    EXPECT_EQ(page.textOf(page.controls()[0].whole), first);
    EXPECT_EQ(page.runtimeTextOf(page.controls()[0]), "one\r\n");
    EXPECT_EQ(page.controls()[1].line, 14);
    EXPECT_EQ(page.textOf(page.controls()[1].whole), second);
    EXPECT_EQ(page.freeId(), "HeaderDTC3") << "2 is the other control's";
    EXPECT_EQ(pageOf("").freeId(), "HeaderDTC1");
}

TEST(PageMarkup, ChangesNothingButWhatDiffers) {
    const std::string before = "\xFF\x00\r\r\n<!--METADATA TYPE=\"TypeLib\" -->";
    const std::string markup =
        "<!-- metadata type=designercontrol STARTSPAN\n"
        "<object classid='{2f9dab28-6bb4-469f-a568-9ca7a4217b69}' id=H>\n"
        "<param value='-1' name=EnableExtraFilters>\n</object>-->\n";
    const std::string end = "<!--metadata endspan type='DesignerControl' -->";
    const std::string after = "\n" + OtherControl + "\x81 tail";
    const auto page = pageOf(before + markup + "old \xE9 &#937;" + end + after);
    ASSERT_EQ(page.controls().size(), 1U);
    const auto& control = page.controls()[0];

    EXPECT_EQ(page.with({contentOf(control, "old é &#937;")}), page.bytes());
    EXPECT_EQ(page.with({contentOf(control, "old é Ω")}), page.bytes())
        << "stored, the letter would be the same reference";
    EXPECT_EQ(page.with({contentOf(control, "new é\r\n")}),
              before + markup + "new \xE9\r\n" + end + after);
    const ControlContent changed{"H", {{"EnableExtraFilters", "0"}}, "old é &#937;"};
    const auto rewritten = written(changed);
    EXPECT_EQ(page.with({changed}), before + rewritten.substr(0, rewritten.find("old")) +
                                        "old \xE9 &#937;" + end + after);
    const ControlContent reordered{"H", {{"XSLFilename", ""}, {"EnableExtraFilters", "-1"}}, ""};
    EXPECT_THAT(page.with({reordered}),
                HasSubstr("VALUE=\"\">\r\n\t<PARAM NAME=\"EnableExtraFilters\""));
    EXPECT_THROW(page.with({}), std::invalid_argument);
}

TEST(PageMarkup, SomebodyElsesTagsAndAttributesStayAsTheyStand) {
    const std::string odd = "<param value='1'  NAME=_ExtentX other>";
    const PageMarkup page(
        "page.asp",
        "<!--METADATA TYPE=DesignerControl startspan <OBJECT height=5 ID=H "
        "codebase='a.cab'\nCLASSID=\"clsid:2F9DAB28-6BB4-469F-A568-9CA7A4217B69\" "
        "x=a--  >" +
            odd +
            "<PARAM NAME=DataProvider VALUE=Orders></OBJECT>-->"
            "<!--METADATA TYPE=DesignerControl endspan-->",
        CodePage("windows-1252"));
    ControlContent content = contentOf(page.controls().front(), "");
    content.properties = {{"DataProvider", "Stock"}, {"_ExtentX", "1"}};
    const std::string bytes = page.readableWith({content});
    EXPECT_THAT(bytes, HasSubstr("69\" height=5 codebase='a.cab' x=a-- >\r\n\t<PARAM "
                                 "NAME=\"DataProvider\" VALUE=\"Stock\">\r\n\t" +
                                 odd + "\r\n</OBJECT>"));
}

TEST(PageMarkup, ARuntimeTextThatBeginsWithALineEndComesBack) {
    auto bytes = written({"H", {}, "x"});
    bytes.erase(bytes.find("\r\nx"), 2);
    const auto page = pageOf(bytes);
    EXPECT_EQ(page.runtimeTextOf(page.controls()[0]), "x");
    const auto changed = pageOf(page.with({contentOf(page.controls()[0], "\r\ny")}));
    EXPECT_EQ(changed.runtimeTextOf(changed.controls()[0]), "\r\ny");
}

TEST(PageMarkup, AByteOrderMarkMakesThePageUtf8) {
    const auto control = written({"H", {{"N", "Ωé"}}, "Ω\r\n"}, "utf-8");
    const auto page = pageOf("\xEF\xBB\xBF" + control);
    EXPECT_TRUE(page.codePage().isUtf8());
    ASSERT_EQ(page.controls().size(), 1U);
    EXPECT_EQ(page.controls()[0].properties[0].second, "Ωé");
    EXPECT_EQ(page.with({contentOf(page.controls()[0], "Ω\r\n")}), page.bytes());
    EXPECT_EQ(pageOf("\xEF\xBB\xBFx").withNewControl(1, {"H", {{"N", "Ωé"}}, "Ω\r\n"}),
              "\xEF\xBB\xBF" + control + "\r\nx");
}

TEST(PageMarkup, ARuntimeTextThatCouldNotBeReadAgainIsRefused) {
    const auto page = pageOf("\n" + written({"H", {}, "x"}));
    for (const auto& text :
         {"a " + EndComment, std::string("<!--\tmetadata ENDSPAN type = designercontrol\n--> b"),
          OtherControl.substr(0, OtherControl.size() - EndComment.size()),
          written({"H", {}, ""}).substr(0, 120)}) {
        const auto problem =
            errorOf<FileError>([&] { page.with({contentOf(page.controls()[0], text)}); });
        EXPECT_THAT(problem, HasSubstr("page.asp:2:1: the runtime text of H holds")) << text;
        EXPECT_THROW(written({"H", {}, text}), FileError) << text;
    }
    for (const std::string text :
         {"<!--METADATA TYPE=\"DesignerControl\" startspan",
          "<!--METADATA TYPE=\"TypeLib\" endspan-->",
          "<!--METADATA TYPE=\"DesignerControl\" endspan x='", "<!-", "<!--METADATA TYPE=\"",
          "<!--METADATA TYPE=\"DesignerControl\" endspanned-->"}) {
        const auto again = pageOf(page.with({contentOf(page.controls()[0], text)}) + "'-->");
        ASSERT_EQ(again.controls().size(), 1U) << text;
        EXPECT_EQ(again.runtimeTextOf(again.controls()[0]), text);
    }
}

// The quotation mark that somebody left open before the control would end inside the new value.
TEST(PageMarkup, WhatDamageAroundItKeepsFromBeingReadIsNotWritten) {
    const PageMarkup page =
        pageOf("<!--metadata type=designercontrol STARTSPAN<object d='" + EndComment + "\r\n" +
               written({"HeaderDTC1", {{"A", "1"}}, "<% %>\r\n"}));
    ASSERT_EQ(page.controls().size(), 1U);
    const auto with = [&](const char* value) {
        return page.readableWith({{"HeaderDTC1", {{"A", value}}, "<% %>\r\n"}});
    };
    EXPECT_THAT(with("of the author"), HasSubstr("of the author"));
    EXPECT_THAT(errorOf<FileError>([&] { with("the author' > "); }),
                HasSubstr("page.asp:1:44: the OBJECT tag is damaged and reaches into"));
}

TEST(PageMarkup, ANewControlGoesBeforeALineOutsideOfAllSpans) {
    const ControlContent content{"H", {}, ""};
    const auto control = written(content) + "\r\n";
    EXPECT_EQ(pageOf("").withNewControl(1, content), control);
    EXPECT_EQ(pageOf("a\nb").withNewControl(1, content), control + "a\nb");
    EXPECT_EQ(pageOf("a\nb").withNewControl(2, content), "a\n" + control + "b");
    EXPECT_EQ(pageOf("a\nb").withNewControl(3, content), "a\nb\r\n" + control);
    EXPECT_EQ(pageOf("a\nb\n").withNewControl(3, content), "a\nb\n" + control);
    EXPECT_THAT(
        errorOf<FileError>([&] { pageOf("a\nb\n").withNewControl(4, content); }),
        HasSubstr("page.asp: has no line 4; a new control can stand before the lines 1 to 3"));
    EXPECT_THROW(pageOf("").withNewControl(0, content), FileError);
    for (const auto& span : {OtherControl, control}) {
        EXPECT_THAT(errorOf<FileError>([&] { pageOf("\n" + span).withNewControl(3, content); }),
                    HasSubstr("page.asp:3:1: this line lies inside a designer control"));
        EXPECT_EQ(pageOf("\n" + span).withNewControl(2, content), "\n" + control + span);
    }
}

// '^' stands where the control has to go.
TEST(PageMarkup, ANewControlWithoutALineGoesBehindTheDirective) {
    const ControlContent content{"H", {}, "<% x %>\r\n"};
    const auto control = written(content) + "\r\n";
    for (std::string page : {
             std::string("^"),
             std::string("^<html>\n"),
             std::string("\xEF\xBB\xBF^<html>"),
             std::string("<%@ LANGUAGE=\"VBScript\" %>\r\n^<html>"),
             std::string("\xEF\xBB\xBF\n \t<% @language=VBScript%>  \n^\n<html>"),
             std::string("<%@ LANGUAGE=\"VBScript\"\n  CODEPAGE=1252 %>\n^<% x %>"),
             std::string("<%@ LANGUAGE=\"VBScript\" %>\r\n^<% s = \"<%@\" %>"),
             std::string("<%@ LANGUAGE=\"VBScript\" %>|^<html>\r\n"),
             std::string("<%@ LANGUAGE=\"VBScript\" %>  |^"),
             "<%@ LANGUAGE=\"VBScript\" %>|^" + OtherControl,
             std::string("<!-- header --><html>\n<%@ X %>\n^"),
             std::string("<!-- <%@ X %> -->\n^<html>"),
             std::string("^<!-- <% s = \"<%@\" %> -->"),
             std::string("^<%@ never closed"),
             "^" + OtherControl + written({"G", {}, "<%@ of a control's text %>"}),
             OtherControl + control + "<%@ X %>\n^",
         }) {
        // With '|' before it, the line has to be ended first.
        const bool endsLine = page.find("|^") != std::string::npos;
        const auto place = page.find(endsLine ? "|^" : "^");
        page.erase(place, endsLine ? 2 : 1);
        EXPECT_EQ(pageOf(page).withNewControl({}, content),
                  std::string(page).insert(place, (endsLine ? "\r\n" : "") + control));
    }
}

// ---- random pages -------------------------------------------------------------------------------

class RandomText {
  public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    std::string of(const std::vector<std::string>& pieces, unsigned longest) {
        std::string text;
        for (auto length = random_() % (longest + 1); length > 0; --length)
            text += pieces[random_() % pieces.size()];
        return text;
    }
    std::string bytes(unsigned longest) {
        std::string text;
        for (auto length = random_() % (longest + 1); length > 0; --length)
            text += static_cast<char>(random_());
        return text;
    }
    bool coin() { return random_() % 2 == 0; }

  private:
    std::mt19937 random_;
};

TEST(PageMarkup, AnyPropertiesComeBackInAnyCodePage) {
    std::vector<std::string> pieces = {
        "a",           "-",  "--",    "\"",       "'",          "<",
        ">",           "&",  "&amp;", "&#45;",    "&#x110000;", "\r",
        "\n",          "\t", " ",     "<!--",     "-->",        "<%",
        "%>",          ";",  "#",     "\x01",     "é",          "€",
        "Ω",           "α",  "😀",     "\xC2\x81", EndComment,   "\xEE\xBE\x80",
        "\xEE\xBF\xBF"};
    pieces.emplace_back(1, '\0');
    RandomText random(7);
    for (const char* name : {"windows-1252", "windows-1253", "utf-8"}) {
        const CodePage codePage(name);
        for (int round = 0; round < 400; ++round) {
            StoredProperties properties;
            for (int number = 0; number < 6; ++number)
                properties.emplace_back(std::to_string(number) + random.of(pieces, 3),
                                        random.of(pieces, 12));
            // What came out of a page is bytes of any kind.
            properties.emplace_back("bytes", codePage.decode(random.bytes(20)));
            const PageMarkup page(
                "page.asp",
                writeControl("page.asp", {random.of(pieces, 3), properties, ""}, codePage),
                codePage);
            ASSERT_EQ(page.controls().size(), 1U);
            ASSERT_EQ(page.controls()[0].properties, properties) << name << '\n' << page.bytes();
        }
    }
}

TEST(PageMarkup, BytesOutsideTheSpanStayWhateverTheyAre) {
    const std::vector<std::string> pieces = {"<!--",
                                             "METADATA ",
                                             "-->",
                                             "TYPE=\"DesignerControl\" ",
                                             "endspan",
                                             "<OBJECT ",
                                             "'",
                                             "\"",
                                             "\r\n",
                                             "\n",
                                             "<%",
                                             OtherControl,
                                             EndComment,
                                             "\xFF",
                                             "<!--METADATA TYPE=\"X\" startspan"};
    RandomText random(11);
    for (int round = 0; round < 500; ++round) {
        const std::string before = random.of(pieces, 8) + random.bytes(20);
        const std::string after = random.bytes(20) + random.of(pieces, 8);
        const auto page = pageOf(before + written({"H", {{"A", "1"}}, "old"}) + after);
        ASSERT_EQ(page.controls().size(), 1U) << page.bytes();
        const ControlContent changed{"H", {{"A", random.coin() ? "1" : "2"}}, "new\r\n"};
        ASSERT_EQ(page.with({changed}), before + written(changed) + after);
    }
}

}  // namespace
}  // namespace headerdtc
