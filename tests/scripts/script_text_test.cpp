#include "scripts/specify_criterium_dialog.h"
#include "support/prologue.h"

namespace headerdtc::script_text_test {

TEST(ScriptTextTest, TheFunctionGoesAroundTheBodyNameFirstSoThatTheBodyKeepsItsPlaces) {
    EXPECT_EQ(scriptFunction("f", "  x = 1\r\n"),
              "Function f()\r\n\r\n  x = 1\r\n\r\nEnd Function 'f()");
    EXPECT_EQ(scriptFunction("", ""), "Function ()\r\n\r\n\r\nEnd Function '()");
    EXPECT_EQ(scriptFunction("f", "<name> <BODY>"),
              "Function f()\r\n\r\n<name> <BODY>\r\nEnd Function 'f()");
    EXPECT_EQ(scriptFunction("<body>", "b"), "Function b()\r\n\r\nb\r\nEnd Function 'b()");
}

TEST(ScriptTextTest, TheBodyIsWhatStandsBetweenTheFirstAndTheLastLine) {
    EXPECT_EQ(scriptBody("anything\r\n\t\r\n\r\nwhatever"), "\t\r\n");
    EXPECT_EQ(scriptBody(""), "");
    EXPECT_EQ(scriptBody("one\r\ntwo"), "");
    // A lone carriage return ends a line, a lone line feed does not.
    EXPECT_EQ(scriptBody("a\rb\r\rc\r\nd\re"), "b\r\nc\r\nd\r\n");
    EXPECT_EQ(scriptBody("a\r\nb\nc\r\n\nd\r\ne"), "b\nc\r\n\nd\r\n");
    // What was read once stays the same from then on.
    const std::string body = scriptBody("Function f()\r\r  a\n\r\n b \r\n \r\nEnd Function");
    EXPECT_EQ(body, "  a\n\r\n b \r\n");
    EXPECT_EQ(scriptBody(scriptFunction("f", body)), body);
}

}  // namespace headerdtc::script_text_test
