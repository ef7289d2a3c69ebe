#include "host/site/site.h"
#include "support/prologue.h"

namespace headerdtc::system_clock_test {

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

}  // namespace headerdtc::system_clock_test
