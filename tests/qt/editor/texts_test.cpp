// Aligned texts, places in messages, the text of the site's configuration.

#include "qt/editor/base/message.h"
#include "qt/editor/page/aligned_texts.h"
#include "qt/editor/settings/configuration_text.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace headerdtc::qt {
namespace {

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
        const Remark remark{Family::ZEKO, row, property, "text", "advice", 0};
        return describe(
            messageOf({"rule", Severity::Error, "page.asp", 4, "HeaderDTC1", remark}).place);
    };
    EXPECT_EQ("HeaderDTC1, ZEKO tab, row 2", placeOf("ZEKOCriteria2_3", 2));
    EXPECT_EQ("HeaderDTC1, EAI tab", placeOf("EAIReturnFields0", 1));
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

}  // namespace
}  // namespace headerdtc::qt
