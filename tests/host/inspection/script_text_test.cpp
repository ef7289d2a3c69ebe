#include "host/inspection/script_text.h"

#include "support/prologue.h"

namespace headerdtc::script_text_test {

using TextForm = ScriptText::Form;

TEST(ScriptText, FindsDefinitionsAndNothingThatOnlyLooksLikeOne) {
    for (const auto& [text, names] : casesOf("host/cases/script_functions.txt")) {
        const bool isPage = text.find("%>") != std::string::npos || text.starts_with("<");
        const auto functions =
            ScriptText::read(text, isPage ? TextForm::Page : TextForm::Script).functions;
        std::string found;
        for (const auto& name : std::set(functions.begin(), functions.end()))
            found += (found.empty() ? "" : " ") + name;
        EXPECT_EQ(found, names) << text;
    }
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

}  // namespace headerdtc::script_text_test
