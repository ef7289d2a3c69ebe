// Aligned texts, places in messages, the text of the site's configuration.

#include "qt/editor/base/message.h"
#include "qt/editor/page/aligned_texts.h"
#include "qt/editor/settings/configuration_text.h"
#include "support/prologue.h"

#include <random>

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

TEST(Message, FindsItsPlaceInItsText) {
    ControlSpan stored;
    stored.id = "HeaderDTC1";
    stored.line = 4;
    stored.properties = {{"EAICriteria2_1", "A"},   {"EAICriteria2_2", "=="},
                         {"EAICriteria2_3", "1"},   {"ZEKOCriteria2_1", "B"},
                         {"ZEKOCriteria2_2", "<>"}, {"ZEKOCriteria2_3", "2"}};
    const auto placeOf = [&](const char* text) {
        return describe(messageOf(text, "page.asp", stored).place);
    };
    EXPECT_EQ("HeaderDTC1, EAI tab, row 3",
              placeOf("Incomplete criterion on line 3 on the EAI tab"));
    EXPECT_EQ("HeaderDTC1, ZEKO tab, row 2", placeOf("Unknown operator '<>' on criterion 2"));
    EXPECT_EQ(
        "HeaderDTC1, General tab",
        describe(messageOf(SaveDoubt{SaveDoubt::Kind::Loss,
                                     "lost",
                                     {{StoredLoss::What::Value, "DataProvider", {}, {}, {}, {}}}},
                           "page.asp", stored)
                     .place));
    EXPECT_EQ("HeaderDTC1, line 4", placeOf("Error in 'GetInstallDir': x (5)"));
    EXPECT_EQ(Message::Severity::Error,
              messageOf("Error in 'GetInstallDir': x (5)", "p", stored).severity);
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

TEST(ConfigurationText, ReadsWhatItKnowsAndWritesBackTheSame) {
    const ConfigurationText text(Toml);
    EXPECT_EQ(Toml, text.bytes());
    EXPECT_EQ("windows-1252", text.get("", "code_page"));
    EXPECT_EQ(".", text.get("project", "root"));
    EXPECT_EQ("caf\xC3\xA9.json", text.get("datasource", "catalogue"));
    EXPECT_EQ(std::nullopt, text.get("", "registry"));
    const std::vector<std::pair<std::string, std::string>> drives{{"C", "drive_c"}, {"D", "d\\x"}};
    EXPECT_EQ(drives, text.entries("drives"));
}

TEST(ConfigurationText, ChangesAValueAndLeavesTheRestAlone) {
    ConfigurationText text(Toml);
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

    ConfigurationText fresh("");
    fresh.set("project", "root", ".");
    fresh.set("", "registry", "v.reg");
    EXPECT_EQ("registry = \"v.reg\"\n[project]\nroot = \".\"\n", fresh.bytes());
}

}  // namespace headerdtc::qt::texts_test
