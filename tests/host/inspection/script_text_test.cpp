#include "host/inspection/script_text.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;

using TextForm = ScriptText::Form;

TEST(ScriptText, FindsDefinitionsAndNothingThatOnlyLooksLikeOne) {
    const auto functions = [](const char* text, TextForm form) {
        return ScriptText::read(text, form).functions;
    };
    EXPECT_THAT(functions("<%Function A()%>", TextForm::Page), UnorderedElementsAre("A"));
    EXPECT_THAT(functions("<SCRIPT RUNAT=server>\n\tfunction helper_2(x) {}\nfunction b() {}\n"
                          "</SCRIPT><script>function c() {}</script>",
                          TextForm::Page),
                UnorderedElementsAre("HELPER_2", "B"));
    // Outside of script nothing is a comment, and no attribute begins a class.
    EXPECT_THAT(functions("Don't\nclass=x <% Function A() %>", TextForm::Page),
                UnorderedElementsAre("A"));
    EXPECT_THAT(functions("Public Default Function B\r\nEnd Function\r\nx = 1: Private _\r\n"
                          "  Function C(y)",
                          TextForm::Script),
                UnorderedElementsAre("B", "C"));
    EXPECT_THAT(functions("' Function Commented()\nRem : Function D()\nEnd Function\n"
                          "Exit Function\nx = \"it's : Function E\"\nDim FunctionE\nSub F()",
                          TextForm::Script),
                IsEmpty());
    EXPECT_THAT(functions("Class Ship\nPublic Function Name()\nEnd Function\nEnd Class\n"
                          "Function G()",
                          TextForm::Script),
                UnorderedElementsAre("G"));
    EXPECT_THAT(functions("Function \xC3\xA9tat()", TextForm::Script),
                UnorderedElementsAre("\xC3\x89TAT"));
}

TEST(ScriptText, KnowsWhatIsDeclaredAndWhatIsLeftOpen) {
    const auto text = ScriptText::read(
        "<% Dim a, b(2, 3), c : Const D = \"x, y\", E = 2\nPublic f\nSub G()\n Dim local\nEnd Sub\n"
        "Class H\n Public i\nEnd Class %>\n<% Function J()",
        TextForm::Page);
    EXPECT_THAT(text.declared, ElementsAre("a", "b", "c", "D", "E", "f", "G", "H", "J"));
    EXPECT_TRUE(text.isOpen);
    EXPECT_EQ(text.openProcedure, "J");
    EXPECT_EQ(ScriptText::read("Function K : K = 1 : End Function", TextForm::Script).openProcedure,
              "");

    EXPECT_THAT(namesUsedIn("word <% Set x = Server.Count(\"text\") ' said\n %>"),
                UnorderedElementsAre("SET", "X", "SERVER"));
    EXPECT_EQ(longestStatement("a _\n b _\n c\n' d _\n' e _\n' f _\nRem g _\nh"), 3);
}

TEST(ScriptText, ReadsIncludeDirectives) {
    const auto includes =
        ScriptText::read(
            "<!-- #Include FILE = \"a b/C.asp\" --> <!--#include virtual='/d.asp'-->\n"
            "<!--#include file=open.asp--><!--#exec cmd=\"x\"--><% '#include file=\"no.asp\" %>",
            TextForm::Page)
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
    EXPECT_TRUE(isReservedWord("Select"));
    EXPECT_TRUE(isReservedWord("and") && isReservedWord("XOR"));
    EXPECT_TRUE(isBuiltInFunction("Array") && isBuiltInFunction("abs") &&
                isBuiltInFunction("YEAR"));
    EXPECT_FALSE(isBuiltInFunction("Selected") || isReservedWord("Selected"));
}

}  // namespace
}  // namespace headerdtc
