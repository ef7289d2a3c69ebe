#include "platform/error_trap.h"

#include "support/fake_surroundings.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;

TEST(ErrorTrapTest, ReportsAFailureUnderTheGivenNameAndKeepsWhatWasDone) {
    testing::RecordingMessageBox messages;
    int done = 0;
    EXPECT_FALSE(trapErrors(messages, "AddField_Click", [&] {
        done = 1;
        throw RuntimeError(ErrorNumber::PathNotFound);
    }));
    EXPECT_EQ(done, 1);
    EXPECT_THAT(messages.errors, ElementsAre("Error in 'AddField_Click': Path not found (76)"));
    EXPECT_EQ(messages.shown, messages.errors);
}

TEST(ErrorTrapTest, ADatabaseFailureKeepsItsOwnNumberAndText) {
    EXPECT_EQ(errorReport("F", RuntimeError(-2147217900, "no such table: I18NTEXT")),
              "Error in 'F': no such table: I18NTEXT (-2147217900)");
    EXPECT_EQ(errorReport("F", RuntimeError(ErrorNumber::Overflow),
                          ErrorReportStyle::NoBlankBeforeNumber),
              "Error in 'F': Overflow(6)");
}

TEST(ErrorTrapTest, LetsThroughWhatIsNoRuntimeFailure) {
    testing::RecordingMessageBox messages;
    EXPECT_THROW(trapErrors(messages, "F", [] { throw std::logic_error("a defect"); }),
                 std::logic_error);
    EXPECT_THAT(messages.shown, IsEmpty());
    EXPECT_TRUE(trapErrors(messages, "F", [] {}));
}

}  // namespace
}  // namespace headerdtc
