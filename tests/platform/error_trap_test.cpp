#include "platform/error_trap.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

struct Recorder : MessageBox {
    void show(const std::string& text) override { remarks.push_back(text); }
    void showError(const std::string& text) override { failures.push_back(text); }
    std::vector<std::string> remarks, failures;
};

TEST(ErrorTrapTest, ReportsAFailureUnderTheGivenNameAndKeepsWhatWasDone) {
    Recorder messages;
    int done = 0;
    const bool ran = trapErrors(messages, "AddField_Click", [&] {
        done = 1;
        throw RuntimeError(ErrorNumber::PathNotFound);
    });
    EXPECT_FALSE(ran);
    EXPECT_EQ(done, 1);
    EXPECT_THAT(messages.failures,
                ::testing::ElementsAre("Error in 'AddField_Click': Path not found (76)"));
    EXPECT_TRUE(messages.remarks.empty());
}

TEST(ErrorTrapTest, ADatabaseFailureKeepsItsOwnNumberAndText) {
    EXPECT_EQ(errorReport("F", RuntimeError(-2147217900, "no such table: I18NTEXT")),
              "Error in 'F': no such table: I18NTEXT (-2147217900)");
    EXPECT_EQ(errorReport("F", RuntimeError(ErrorNumber::Overflow),
                          ErrorReportStyle::NoBlankBeforeNumber),
              "Error in 'F': Overflow(6)");
}

TEST(ErrorTrapTest, LetsThroughWhatIsNoRuntimeFailure) {
    Recorder messages;
    EXPECT_THROW(trapErrors(messages, "F", [] { throw std::logic_error("a defect"); }),
                 std::logic_error);
    EXPECT_TRUE(messages.failures.empty());
    EXPECT_TRUE(trapErrors(messages, "F", [] {}));
}

}  // namespace
}  // namespace headerdtc
