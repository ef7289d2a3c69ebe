// Aligned texts, places in messages, the text of the site's configuration.

#include "host/site/site_configuration.h"
#include "qt/editor/base/message.h"
#include "qt/editor/page/aligned_texts.h"
#include "qt/editor/settings/configuration_text.h"
#include "support/prologue.h"

namespace headerdtc::qt::texts_test {

TEST(AlignedTexts, PutsLinesOfOneOriginIntoOneRow) {
    const auto rows = alignTexts("a\nb\nc\n", "a\nmine\nc\n", "a\nb\ntheirs\nc\n");
    std::string shown;
    for (const AlignedRow& row : rows) {
        for (const auto& cell : row.cells)
            shown += (cell.present ? std::string(cell.text) : "-") + (cell.changed ? "! " : " ");
        shown += '\n';
    }
    EXPECT_EQ(
        "a a a \n"
        "- mine! - \n"
        "b! - b \n"
        "- - theirs! \n"
        "c c c \n",
        shown);
}

TEST(Message, StandsAtThePlaceOfWhatWasFound) {
    const auto placeOf = [](const char* property, int row) {
        InspectedPage page;
        page.findings = {{"rule",
                          Severity::Error,
                          "page.asp",
                          4,
                          "HeaderDTC1",
                          "",
                          {Family::ZEKO, row, property, "text", "advice", 0}}};
        return describe(messagesOf("page.asp", page).at(0).place);
    };
    EXPECT_EQ("HeaderDTC1, ZEKO tab, row 2", placeOf("ZEKOCriteria2_3", 2));
    EXPECT_EQ("HeaderDTC1, EAI tab, row 1", placeOf("EAIReturnFields0", 1));
    EXPECT_EQ("HeaderDTC1, General tab", placeOf("DataProvider", 0));
    EXPECT_EQ("HeaderDTC1, ZEKO tab", placeOf("", 0));
}

constexpr const char* Toml =
    "# The site.\n"
    "code_page = \"windows-1252\"      # of every page\n"
    "\n"
    "[project]\r\n"
    "root = '.'\r\n"
    "[drives]   # letters\n"
    "C = \"drive_c\"\n"
    "  # the second one\n"
    "D = 'd\\x'\n"
    "[datasource]\n"
    "catalogue = \"caf\\u00e9.json\"";

TEST(ConfigurationText, ChangesAValueAndLeavesTheRestAlone) {
    ConfigurationText text("file", Toml);
    const std::vector<std::pair<std::string, std::string>> drives{{"C", "drive_c"}, {"D", "d\\x"}};
    EXPECT_EQ(drives, text.entries("drives"));
    EXPECT_EQ("caf\xC3\xA9.json", text.get("datasource", "catalogue"));
    text.set("", "code_page", "utf-8");
    text.set("project", "root", "C:\\web");
    text.remove("drives", "C");
    text.set("drives", "E", "e \"quoted\" 'both'");
    text.set("", "registry", "v.reg");
    text.set("translations", "odbc_ini", "odbc.ini");
    EXPECT_EQ(
        "# The site.\n"
        "code_page = \"utf-8\"             # of every page\n"
        "registry = \"v.reg\"\n"
        "\n"
        "[project]\r\n"
        "root = 'C:\\web'\r\n"
        "[drives]   # letters\n"
        "  # the second one\n"
        "D = 'd\\x'\n"
        "E = \"e \\\"quoted\\\" 'both'\"\n"
        "[datasource]\n"
        "catalogue = \"caf\\u00e9.json\"\n"
        "\n"
        "[translations]\n"
        "odbc_ini = \"odbc.ini\"\n",
        text.bytes());
}

// Whichever way a section is written.
TEST(ConfigurationText, FindsTheWayAFileIsWritten) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "[drives]\nC = \"c\"\n"},
        {"\xEF\xBB\xBF\"drives\".\"D\" = '''\nd'''",
         "\xEF\xBB\xBF"
         "drives.C = \"c\"\n"},
        {"[drives] \r\n# none\r\n", "[drives] \r\nC = \"c\"\r\n# none\r\n"},
        {"drives = {D = 'd', \"C\" = \"\xC3\xA9\"} # \xC3\xA9",
         "drives = {\"C\" = \"c\"} # \xC3\xA9"},
        {"[ drives ]\nD = 'd' # d\nC = 1\n", "[ drives ]\nC = \"c\"\n"},
    };
    for (const auto& [before, after] : cases) {
        ConfigurationText text("file", before);
        text.set("drives", "C", "c");
        text.remove("drives", "D");
        EXPECT_EQ(after, text.bytes());
    }
    EXPECT_THROW(ConfigurationText("file", "[drives"), ConfigurationError);
}

}  // namespace headerdtc::qt::texts_test
