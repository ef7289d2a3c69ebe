#include "host/inspection/script_text.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;

TEST(ScriptText, FindsDefinitionsAndNothingThatOnlyLooksLikeOne) {
    const auto functions = [](const char* text) { return ScriptText::read(text).functions; };
    EXPECT_THAT(functions("<%Function A()%>"), UnorderedElementsAre("A"));
    EXPECT_THAT(functions("<SCRIPT RUNAT=server>\n\tfunction helper_2(x) {}\n</SCRIPT>"),
                UnorderedElementsAre("HELPER_2"));
    EXPECT_THAT(functions("Public Default Function B\r\nx = 1: Private Function C(y)"),
                UnorderedElementsAre("B", "C"));
    EXPECT_THAT(functions("' Function Commented()\nEnd Function\nExit Function\n"
                          "x = \"it's\" ' : Function D()\nDim FunctionE\nSub F()"),
                IsEmpty());
    EXPECT_THAT(functions("Class Ship\nPublic Function Name()\nEnd Class\nFunction G()"),
                UnorderedElementsAre("G"));
    EXPECT_THAT(functions("Function \xC3\xA9tat()"), UnorderedElementsAre("\xC3\x89TAT"));
}

TEST(ScriptText, ReadsIncludeDirectives) {
    const auto includes =
        ScriptText::read(
            "<!-- #Include FILE = \"a b/C.asp\" --> <!--#include virtual='/d.asp'-->\n"
            "<!--#include file=open.asp--><!--#exec cmd=\"x\"-->")
            .includes;
    ASSERT_EQ(includes.size(), 2U);
    EXPECT_EQ(includes[0].path, "a b/C.asp");
    EXPECT_FALSE(includes[0].isVirtual);
    EXPECT_EQ(includes[1].path, "/d.asp");
    EXPECT_TRUE(includes[1].isVirtual);
}

TEST(ScriptText, KnowsWhatCanBeAFunctionsName) {
    EXPECT_TRUE(isFunctionName("First_2"));
    for (const char* text : {"", "2nd", "_x", "a b", "f()", "\"x\""})
        EXPECT_FALSE(isFunctionName(text)) << text;
}

}  // namespace
}  // namespace headerdtc
