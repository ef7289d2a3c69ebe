#include "host/page/page_markup.h"

#include "host/page/text_property_bag.h"
#include "support/prologue.h"

namespace headerdtc::page_markup_test {

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

// Words, and what cannot stand among them.
std::vector<std::string> piecesOf(const std::string& words, std::vector<std::string> pieces) {
    std::istringstream stream(words);
    pieces.insert(pieces.end(), std::istream_iterator<std::string>(stream), {});
    return pieces;
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

TEST(PageMarkup, ANewControlGoesBeforeALineOrBehindTheDirective) {
    const ControlContent content{"H", {}, "<%@ x %>\r\n"};
    const auto control = written(content) + "\r\n";
    for (const auto& [given, expected] : casesOf("host/cases/new_control.txt")) {
        const auto spelled = [&](const std::string& text) {
            return replaceAll(replaceAll(text, "{other}", OtherControl), "{control}", control);
        };
        const auto page = pageOf(spelled(given.substr(2)));
        const auto line = given[0] == '-' ? std::nullopt : std::optional(given[0] - '0');
        std::string made;
        const auto problem = errorOf<FileError>([&] { made = page.withNewControl(line, content); });
        if (expected.starts_with("page.asp")) {
            EXPECT_THAT(problem, HasSubstr(expected)) << given;
        } else {
            EXPECT_EQ(made, replaceAll(spelled(replaceAll(expected, "|^", "\r\n^")), "^", control));
        }
    }
}

TEST(PageMarkup, AnyPropertiesComeBackInAnyCodePage) {
    const auto pieces =
        piecesOf(R"(a - -- " ' < > & &amp; &#45; &#x110000; <!-- --> <% %> ; # é € Ω α 😀)",
                 {"\r", "\n", "\t", " ", "\x01", "\xC2\x81", EndComment, "\xEE\xBE\x80",
                  "\xEE\xBF\xBF", std::string(1, '\0')});
    std::mt19937 random(7);
    const auto text = [&](unsigned longest) {
        std::string made;
        for (auto length = random() % (longest + 1); length > 0; --length)
            made += pieces[random() % pieces.size()];
        return made;
    };
    for (const char* name : {"windows-1252", "windows-1253", "utf-8"}) {
        const CodePage codePage(name);
        for (int round = 0; round < 400; ++round) {
            StoredProperties properties;
            for (int number = 0; number < 6; ++number)
                properties.emplace_back(std::to_string(number) + text(3), text(12));
            // What came out of a page is bytes of any kind.
            std::string bytes;
            for (auto length = random() % 20; length > 0; --length)
                bytes += static_cast<char>(random());
            properties.emplace_back("bytes", codePage.decode(bytes));
            const PageMarkup page("page.asp",
                                  writeControl("page.asp", {text(3), properties, ""}, codePage),
                                  codePage);
            ASSERT_EQ(page.controls().size(), 1U);
            ASSERT_EQ(page.controls()[0].properties, properties) << name << '\n' << page.bytes();
        }
    }
}

TEST(CollectingPropertyBag, LeavesOutWhatEqualsItsDefaultInTypeAndValue) {
    CollectingPropertyBag bag;
    bag.WriteProperty("Flag", true, false);
    bag.WriteProperty("Off", false, true);
    bag.WriteProperty("Same", false, false);
    bag.WriteProperty("Count", std::int16_t{0}, std::int16_t{0});
    bag.WriteProperty("NrOf", std::int16_t{0}, std::string("0"));
    bag.WriteProperty("Negative", std::int16_t{-32768}, std::int16_t{0});
    bag.WriteProperty("Name", std::string("Orders"), std::string());
    bag.WriteProperty("Empty", std::string(), std::string("0"));
    EXPECT_THAT(bag.asStored(),
                ElementsAre(Pair("Flag", "-1"), Pair("Off", "0"), Pair("NrOf", "0"),
                            Pair("Negative", "-32768"), Pair("Name", "Orders"), Pair("Empty", "")));
    EXPECT_EQ(bag.written()[2].second, PropertyValue(std::int16_t{0}));
    EXPECT_EQ(bag.ReadProperty("Flag", false), PropertyValue(false));
}

TEST(StoredPropertyBag, GivesTextOrTheDefault) {
    const StoredProperties stored = {{"Count", "7"}, {"Empty", ""}};
    StoredPropertyBag bag(stored);
    EXPECT_EQ(bag.ReadProperty("Count", std::int16_t{1}), PropertyValue(std::string("7")));
    EXPECT_EQ(bag.ReadProperty("Empty", std::string("x")), PropertyValue(std::string()));
    EXPECT_EQ(bag.ReadProperty("count", std::int16_t{1}), PropertyValue(std::int16_t{1}));
}

}  // namespace headerdtc::page_markup_test
