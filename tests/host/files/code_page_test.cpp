#include "host/files/code_page.h"

#include "platform/utf8.h"
#include "support/prologue.h"

namespace headerdtc::code_page_test {

TEST(CodePage, EveryByteComesBackWhetherItIsDefinedOrNot) {
    for (const char* name : {"windows-1252", "windows-1253", "windows-1251", "windows-1255",
                             "windows-1258", "iso-8859-7", "koi8-r", "us-ascii", "utf-8"}) {
        const CodePage page(name);
        std::string bytes;
        for (int byte = 0; byte < 256; ++byte)
            bytes += static_cast<char>(byte);
        const std::string text = page.decode(bytes);
        EXPECT_EQ(page.encode(text), bytes) << name;
        EXPECT_EQ(page.encodeWithReferences(text), bytes) << name;
        EXPECT_EQ(CodePage::utf8().decode(text).find("\xEF\xBF\xBD"), std::string::npos) << name;
    }
}

TEST(CodePage, RandomBytesOfUtf8FilesComeBack) {
    std::mt19937 random(1);
    // Those of characters, so that valid, broken and reserved sequences all occur.
    constexpr std::string_view Bytes = "a\xC3\xA9\xEF\xB7\xA0\x90\xED\x80\xF4\xF0\x9F\x98\xC0\xFF";
    for (int round = 0; round < 50000; ++round) {
        std::string bytes;
        for (int length = static_cast<int>(random() % 12); length > 0; --length)
            bytes += Bytes[random() % Bytes.size()];
        const auto text = CodePage::utf8().decode(bytes);
        ASSERT_EQ(CodePage::utf8().encode(text), bytes);
        ASSERT_EQ(CodePage::utf8().encodeWithReferences(text), bytes);
    }
}

// Also those of private use and the noncharacters, one after another.
TEST(CodePage, EveryCharacterIsItselfInUtf8) {
    std::string all;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character == 0xD800) character = 0xE000;
        all += utf8::encode(character);
    }
    EXPECT_EQ(CodePage::utf8().decode(all), all);
    EXPECT_EQ(CodePage::utf8().encode(all), all);
    EXPECT_EQ(CodePage::utf8().encodeWithReferences(all), all);
}

TEST(CodePage, KnowsItsCharacters) {
    const CodePage western("Windows-1252");
    EXPECT_EQ(western.decode("\x80 caf\xE9 \x81"), "€ café \xC2\x81");
    EXPECT_EQ(western.lacking("aΩ€\xC2\x80Ω\xC2\x81"), U"Ω\x80") << "the byte is the euro sign's";
    EXPECT_EQ(CodePage("windows-1253").decode("\xD9\xE1"), "Ωα");
    EXPECT_EQ(CodePage("windows-1253").lacking(CodePage("windows-1253").decode("\xAA")), U"");
    EXPECT_EQ(CodePage::utf8().lacking("😀"), U"");
    EXPECT_EQ(western, CodePage("WINDOWS-1252"));
    EXPECT_EQ(CodePage("UTF8"), CodePage::utf8());
}

TEST(CodePage, CharactersThatItLacksAreQuestionMarksOrReferences) {
    const CodePage western("windows-1252");
    EXPECT_EQ(western.encode("é Ω 😀"), "\xE9 ? ?");
    EXPECT_EQ(western.encodeWithReferences("é Ω 😀 \xC2\x80"), "\xE9 &#937; &#128512; &#128;");
    EXPECT_EQ(western.encode("broken \xC3"), "broken ?");
    // A byte that another code page leaves undefined has no place in this one.
    const auto undefined = CodePage("windows-1253").decode("\xAA");
    EXPECT_EQ(western.encodeWithReferences(undefined), "&#64994;&#64986;");
}

TEST(CodePage, BytesThatWouldJoinToACharacterAreNamedOneByOne) {
    const auto first = CodePage::utf8().decode("\xC3");
    const auto second = CodePage::utf8().decode("\xA9");
    EXPECT_EQ(CodePage::utf8().encodeWithReferences(first + second),
              "&#64996;&#64979;&#64994;&#64985;");
    EXPECT_EQ(CodePage::utf8().encodeWithReferences(first + "-" + second), "\xC3-\xA9");
}

TEST(CodePage, RefusesWhatIsNoCodePageOfSingleBytes) {
    for (const char* name : {"", "klingon", "shift_jis", "utf-16", "big5", "ibm037", "gb18030",
                             "windows-1252//TRANSLIT", "latin 1"})
        EXPECT_THROW(CodePage{name}, std::invalid_argument) << name;
}

}  // namespace headerdtc::code_page_test
