#include "host/site/site_text_files.h"

#include "host/site/site.h"
#include "support/prologue.h"

namespace headerdtc::site_text_files_test {

class SiteTextFilesTest : public Test {
  protected:
    // "File not found(53)", or the text.
    std::string read(const std::string& path) {
        try {
            return files.readText(path);
        } catch (const RuntimeError& error) {
            return error.description() + "(" + std::to_string(error.number()) + ")";
        }
    }
    int write(const std::string& path, const std::string& text) {
        return numberOf([&] { files.writeText(path, text); });
    }

    TempFolder folder;
    SiteTextFiles files{WindowsPaths({{'C', folder.path()}}), CodePage("windows-1252")};
};

TEST_F(SiteTextFilesTest, TextIsInTheSitesCodePage) {
    folder.write("Include/Template.asp", "\xE9\x80\r\n\n\x81");
    EXPECT_EQ(read("C:\\INCLUDE\\TEMPLATE.ASP"), "é€\r\n\n\xC2\x81");
    folder.write("Include/Template.asp", "changed");
    EXPECT_EQ(read("C:\\INCLUDE\\TEMPLATE.ASP"), "changed");
    folder.write("marked.asp", "\xEF\xBB\xBFΩ");
    EXPECT_EQ(read("C:\\marked.asp"), "Ω");

    EXPECT_EQ(write("c:\\include\\out.txt", "é€Ω\r\n"), 0);
    EXPECT_EQ(folder.read("Include/out.txt"), "\xE9\x80?\r\n");
    EXPECT_EQ(read("C:\\Include\\OUT.TXT"), "é€?\r\n");
}

TEST_F(SiteTextFilesTest, FailuresHaveTheEstablishedNumbersAndTexts) {
    folder.write("file.txt", "");
    EXPECT_EQ(read("C:\\none.asp"), "File not found(53)");
    EXPECT_EQ(read("C:\\none\\none.asp"), "Path not found(76)");
    EXPECT_EQ(read("C:\\file.txt\\none.asp"), "Path not found(76)");
    EXPECT_EQ(read("X:\\none.asp"), "Path not found(76)");
    EXPECT_EQ(read("C:\\"), "Path/File access error(75)");
    EXPECT_EQ(read("C:\\" + std::string(300, 'x')), "Path/File access error(75)");
    EXPECT_EQ(read("Z:\\dev\\zero"), "Path/File access error(75)");
    EXPECT_EQ(write("c:\\none\\DTC.TXT", "x"), 76);
    EXPECT_EQ(write("c:\\file.txt\\DTC.TXT", "x"), 76);
    EXPECT_EQ(write("c:\\", "x"), 75);
    EXPECT_EQ(write("z:\\dev\\null", "x"), 75);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(ShortDate, HasFourDigitsOfTheYearAndNoZerosInTheAmericanOrder) {
    std::tm date{};
    date.tm_year = 100;
    date.tm_mon = 3;
    date.tm_mday = 6;
    const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    const std::pair<std::string, std::string> cases[] = {
        {"%m/%d/%y", "4/6/2000"},   {"%m/%d/%Y", "4/6/2000"},   {"%D", "4/6/2000"},
        {"%d/%m/%y", "06/04/2000"}, {"%d.%m.%Y", "06.04.2000"}, {"%Y-%m-%d", "2000-04-06"},
        {"%d %b %Y", "06 Apr 2000"}};
    for (const auto& [pattern, text] : cases)
        EXPECT_EQ(shortDate(date, pattern, plain), text);
    date.tm_mon = 11;
    date.tm_mday = 26;
    EXPECT_EQ(shortDate(date, "%m/%d/%y", plain), "12/26/2000");
    freelocale(plain);
}

}  // namespace headerdtc::site_text_files_test
