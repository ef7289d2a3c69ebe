#include "scripts/script_text.h"

#include <gtest/gtest.h>

namespace headerdtc {
namespace {

TEST(ScriptTextTest, TheFunctionGoesAroundTheBody) {
    EXPECT_EQ(scriptFunction("f", "  x = 1\r\n"),
              "Function f()\r\n\r\n  x = 1\r\n\r\nEnd Function 'f()");
    EXPECT_EQ(scriptFunction("", ""), "Function ()\r\n\r\n\r\nEnd Function '()");
}

TEST(ScriptTextTest, PlacesAreFilledNameFirstSoThatTheBodyKeepsItsOwn) {
    EXPECT_EQ(scriptFunction("f", "<name> <BODY>"),
              "Function f()\r\n\r\n<name> <BODY>\r\nEnd Function 'f()");
    EXPECT_EQ(scriptFunction("<body>", "b"), "Function b()\r\n\r\nb\r\nEnd Function 'b()");
}

TEST(ScriptTextTest, TheBodyIsWhatStandsBetweenTheFirstAndTheLastLine) {
    EXPECT_EQ(scriptBody("Function f()\r\n\r\n  x = 1\r\n\r\n  y = 2\r\nEnd Function 'f()"),
              "  x = 1\r\n  y = 2\r\n");
    EXPECT_EQ(scriptBody("anything\r\n\t\r\nwhatever"), "\t\r\n");
    EXPECT_EQ(scriptBody(""), "");
    EXPECT_EQ(scriptBody("one\r\ntwo"), "");
}

TEST(ScriptTextTest, ALoneCarriageReturnEndsALineAndALoneLineFeedDoesNot) {
    EXPECT_EQ(scriptBody("a\rb\r\rc\r\nd\re"), "b\r\nc\r\nd\r\n");
    EXPECT_EQ(scriptBody("a\r\nb\nc\r\n\nd\r\ne"), "b\nc\r\n\nd\r\n");
}

TEST(ScriptTextTest, AScriptReadOnceStaysTheSameFromThenOn) {
    const std::string first = scriptBody("Function f()\r\r  a\n\r\n b \r\n \r\nEnd Function");
    EXPECT_EQ(first, "  a\n\r\n b \r\n");
    EXPECT_EQ(scriptBody(scriptFunction("f", first)), first);
}

}  // namespace
}  // namespace headerdtc
